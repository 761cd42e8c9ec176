#include "support/recording_front_end.hpp"

#include <fmt/format.h>

#include "model/path.hpp"

namespace brindle::test {

RecordingFrontEnd::RecordingFrontEnd() : before_(frontend) {
    frontend = this;
}

RecordingFrontEnd::~RecordingFrontEnd() {
    frontend = before_;
}

void RecordingFrontEnd::prompt(TreeView *, std::string_view message, bool is_silent) {
    log.push_back(fmt::format("prompt: {}", message));
    messages.emplace_back(message);
    silent = is_silent;
}

void RecordingFrontEnd::prompt_at_node(const Node *node, std::string_view message, TreeView *,
                                       bool is_silent) {
    log.push_back(fmt::format("prompt at {}: {}", path_of(node), message));
    messages.emplace_back(message);
    prompted_at = node;
    silent = is_silent;
}

void RecordingFrontEnd::tree_GUI_repaint(TreeView *) {
    log.emplace_back("repaint");
}

void RecordingFrontEnd::show_foot(TreeView *, std::string_view text) {
    log.push_back(fmt::format("foot: {}", text));
}

void RecordingFrontEnd::show_nr(int tree, TreeView *) {
    log.push_back(fmt::format("show {}", tree));
}

void RecordingFrontEnd::frame_busy(TreeView *, bool busy) {
    log.emplace_back(busy ? "busy" : "idle");
}

void RecordingFrontEnd::all_frames_busy(TreeView *, bool busy) {
    log.emplace_back(busy ? "all busy" : "all idle");
}

void RecordingFrontEnd::notify_dispatch() {
    log.emplace_back("dispatch");
    if (on_dispatch) on_dispatch();
}

void RecordingFrontEnd::progress(TreeView *, int n, int m) {
    log.push_back(fmt::format("progress {}/{}", n, m));
}

}  // namespace brindle::test
