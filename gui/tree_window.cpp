#include "gui/tree_window.hpp"

#include <algorithm>

#include "gui/the_corpus.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

constinit std::unique_ptr<CopyRequest> COPY_TO;

namespace {

std::vector<std::unique_ptr<TreeWindow>> &windows() {
    static std::vector<std::unique_ptr<TreeWindow>> list;
    return list;
}

}  // namespace

const std::vector<std::unique_ptr<TreeWindow>> &tree_windows() {
    return windows();
}

TreeWindow &add_tree_window() {
    return *windows().emplace_back(std::make_unique<TreeWindow>());
}

void close_tree_window(TreeWindow &tw) {
    if (COPY_TO && COPY_TO->window == &tw) COPY_TO.reset();
    const int edited = number_of(*tw.syntax_editor, Key::edited_tree);
    if (edited >= 0) the_corpus().tree(edited).editing = false;
    auto &list = windows();
    const auto at = std::find_if(list.begin(), list.end(), [&](const auto &w) { return w.get() == &tw; });
    // A callback of the window may be running: the record goes when the loop is idle again.
    std::shared_ptr<TreeWindow> record = std::move(*at);
    list.erase(at);
    tw.frame->destroy();
    tk::add_timer(0, [record] {});
}

TreeWindow *open_window(TreeView *view) {
    for (const auto &tw : windows())
        if (tw.get() == view) return tw.get();
    return nullptr;
}

Tree *current_tree(const TreeWindow &tw) {
    return tw.tree_number >= 0 && tw.tree_number < the_corpus().amount() ? &the_corpus().tree(tw.tree_number)
                                                                         : nullptr;
}

}  // namespace brindle
