#include "app/batch/shell.hpp"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fmt/format.h>

#include "base/input_file.hpp"
#include "base/output_file.hpp"
#include "base/text.hpp"
#include "model/path.hpp"

namespace brindle::batch {
namespace {

// Standard output as a sink that reports what could not be written.
struct StandardOutput : TextSink {
    bool write(std::string_view piece) override {
        return std::fwrite(piece.data(), 1, piece.size(), stdout) == piece.size() || fail();
    }
    bool flush() { return std::fflush(stdout) == 0 || fail(); }
    // The errno of what failed; `write` may have met it in another thread, which has its own.
    int fault = 0;

  private:
    bool fail() {
        fault = errno;
        return false;
    }
};

}  // namespace

bool take_in(const std::string &name, std::string &text) {
    const InputFile file(name == "-" ? "/dev/stdin" : name);
    if (!file.ok()) {
        complain(fmt::format("{}: {}", name, std::strerror(errno)));
        return false;
    }
    text = file.text();
    return true;
}

int write_to(const std::string &name, const std::function<bool(TextSink &)> &produce) {
    if (name == "-") {
        StandardOutput sink;
        if (produce(sink) && sink.flush()) return done;
        return told("standard output", std::strerror(sink.fault));
    }
    OutputFile file(name);
    if (file.ok() && produce(file) && file.commit()) return done;
    return told(name, file.error());
}

int put_out(const std::string &name, std::string_view text) {
    return write_to(name, [&](TextSink &sink) { return sink.write(text); });
}

int told(const std::string &name, const std::string &reason) {
    complain(fmt::format("cannot write to {}: {}", name, reason));
    return failed;
}

void complain(std::string_view message) {
    fmt::print(stderr, "brindle-batch: {}\n", for_terminal(message));
}

std::string for_terminal(std::string_view notice) {
    constexpr std::string_view line_break = "\n\x1b\n";
    std::string shown;
    for (std::size_t at; (at = notice.find(line_break)) != notice.npos;) {
        const std::size_t end = notice.find_first_not_of(" \t", at + line_break.size());
        shown += visible(notice.substr(0, at));
        shown += notice.substr(at, end - at);
        notice.remove_prefix(std::min(end, notice.size()));
    }
    return shown + visible(notice);
}

// ---------------------------------------------------------------- runs

RunDisplay::RunDisplay(bool quiet) : shows_(!quiet && isatty(STDERR_FILENO)) {}

RunDisplay::~RunDisplay() {
    wipe();
}

void RunDisplay::wipe() {
    if (drawn_) fmt::print(stderr, "\r\033[K");
    drawn_ = false;
}

void RunDisplay::progress(int n, int m) {
    using namespace std::chrono_literals;
    const auto now = Clock::now();
    if (!shows_ || now - started_ < 500ms || now - latest_ < 100ms || m == 0) return;
    latest_ = now;
    constexpr int width = 40;
    const int full = static_cast<int>(static_cast<long>(n) * width / m);
    fmt::print(stderr, "\r[{}{}] {} of {} trees", std::string(static_cast<std::size_t>(full), '='),
               std::string(static_cast<std::size_t>(width - full), ' '), n, m);
    drawn_ = true;
}

void RunDisplay::print(std::string_view line) {
    wipe();
    fmt::print(stderr, "{}\n", line);
}

void RunDisplay::tell_at(const Node *node, std::string_view message) {
    ++errors_;
    print(fmt::format("tree {}, node {}: {}", node->tree() + 1, path_of(node), for_terminal(message)));
}

RunHooks RunDisplay::hooks() {
    RunHooks hooks;
    hooks.progress = [this](int n, int m) { progress(n, m); };
    return hooks;
}

}  // namespace brindle::batch
