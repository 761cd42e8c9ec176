#include "app/batch/progress.hpp"

#include <unistd.h>

#include <string>

#include <fmt/format.h>

#include "app/batch/session.hpp"
#include "model/forest.hpp"
#include "model/path.hpp"

namespace brindle::batch {

using namespace std::chrono_literals;

ShellFrontEnd::ShellFrontEnd(bool quiet) : shows_(!quiet && isatty(STDERR_FILENO)) {}

ShellFrontEnd::~ShellFrontEnd() {
    wipe();
}

void ShellFrontEnd::wipe() {
    if (drawn_) fmt::print(stderr, "\r\033[K");
    drawn_ = false;
}

void ShellFrontEnd::progress(TreeView *, int n, int m) {
    const auto now = Clock::now();
    if (!shows_ || now - started_ < 500ms || now - latest_ < 100ms || m == 0) return;
    latest_ = now;
    constexpr int width = 40;
    const int full = static_cast<int>(static_cast<long>(n) * width / m);
    fmt::print(stderr, "\r[{}{}] {} of {} trees", std::string(static_cast<std::size_t>(full), '='),
               std::string(static_cast<std::size_t>(width - full), ' '), n, m);
    drawn_ = true;
}

void ShellFrontEnd::prompt_at_node(const Node *node, std::string_view message, TreeView *, bool) {
    wipe();
    ++errors_;
    const TreeEntry *tree = tree_of(node);
    const auto number = tree ? tree - forest.data() + 1 : 0;
    fmt::print(stderr, "tree {}, node {}: {}\n", number, path_of(node), for_terminal(message));
}

void ShellFrontEnd::print(std::string_view line) {
    wipe();
    fmt::print(stderr, "{}\n", line);
}

}  // namespace brindle::batch
