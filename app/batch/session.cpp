#include "app/batch/session.hpp"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include <fmt/format.h>

#include "corpus/readtrees.hpp"
#include "corpus/writetrees.hpp"
#include "model/forest.hpp"
#include "model/input_file.hpp"
#include "model/output_file.hpp"
#include "model/text.hpp"
#include "wordgraph/readwg.hpp"

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

int told(const std::string &name, const std::string &reason) {
    complain(fmt::format("cannot write to {}: {}", name, reason));
    return failed;
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

void load(const Options &options) {
    readcorpus(options.corpus, !options.quiet);
    CORPUS = options.corpus;
    if (!options.wordgraphs.empty()) read_wordgraphs(options.wordgraphs);
}

int tree_index(int number) {
    if (number < 1 || number > amount)
        throw UsageError{fmt::format("no tree {} in this corpus: it has {}", number, amount)};
    return number - 1;
}

SelectionChoice selection_choice(const Options &options) {
    SelectionChoice choice;
    choice.types = options.trees == "checked"     ? TreeTypes::checked
                   : options.trees == "unchecked" ? TreeTypes::unchecked
                                                  : TreeTypes::both;
    if (options.from) tree_index(*options.from);
    if (options.to) tree_index(*options.to);
    choice.from = options.from.value_or(1);
    choice.to = options.to.value_or(amount);
    if (choice.from > choice.to && amount > 0)
        throw UsageError{fmt::format("--from {} is behind --to {}", choice.from, choice.to)};
    choice.random = options.random.has_value();
    choice.size = options.random.value_or(0);
    choice.seed = options.seed;
    return choice;
}

std::vector<int> selected_trees(const Options &options) {
    return select_trees(selection_choice(options));
}

int put_out(const std::string &name, std::string_view text) {
    return write_to(name, [&](TextSink &sink) { return sink.write(text); });
}

int put_out(const Options &options, std::string_view text) {
    return put_out(options.output, text);
}

int put_out_corpus(const Options &options) {
    return write_to(options.output, save_corpus);
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

void complain(std::string_view message) {
    fmt::print(stderr, "brindle-batch: {}\n", for_terminal(message));
}

bool take_in(const std::string &name, std::string &text) {
    const InputFile file(name == "-" ? "/dev/stdin" : name);
    if (!file.ok()) {
        complain(fmt::format("{}: {}", name, std::strerror(errno)));
        return false;
    }
    text = file.text();
    return true;
}

}  // namespace brindle::batch
