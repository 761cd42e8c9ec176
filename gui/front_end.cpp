#include "gui/front_end.hpp"

#include <algorithm>

#include "gui/dialogs.hpp"
#include "gui/tree_window.hpp"
#include "toolkit/display.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

tk::Frame &WindowFrontEnd::frame_of(TreeView *view) {
    TreeWindow *tw = open_window(view);
    return tw ? *tw->frame : main_frame_;
}

void WindowFrontEnd::prompt(TreeView *view, std::string_view message, bool silent) {
    tk::Notice notice(frame_of(view));
    brindle::prompt(notice, message, silent);
}

void WindowFrontEnd::prompt_at_node(const Node *node, std::string_view message, TreeView *view, bool silent) {
    TreeWindow *tw = open_window(view);
    if (!tw) return prompt(view, message, silent);
    brindle::prompt_at_node(node, message, *tw, silent);
}

void WindowFrontEnd::tree_GUI_repaint(TreeView *view) {
    if (TreeWindow *tw = open_window(view)) brindle::tree_GUI_repaint(*tw);
}

void WindowFrontEnd::show_foot(TreeView *view, std::string_view text) {
    if (TreeWindow *tw = open_window(view)) brindle::show_foot(*tw->frame, text);
}

void WindowFrontEnd::show_nr(int tree, TreeView *view) {
    if (TreeWindow *tw = open_window(view)) brindle::show_nr(tree, *tw);
}

void WindowFrontEnd::frame_busy(TreeView *view, bool busy) {
    frame_of(view).set_busy(busy);
}

void WindowFrontEnd::all_frames_busy(TreeView *, bool busy) {
    brindle::all_frames_busy(main_frame_, busy);
}

// A run may ask between any two of a million trees; a person notices nothing below some milliseconds. The
// windows get at most a fifth of the run's time, as long as they are not kept waiting for more than a tenth
// of a second.
void WindowFrontEnd::notify_dispatch() {
    using namespace std::chrono;
    const auto start = steady_clock::now();
    if (start < next_dispatch_) return;
    tk::notify_dispatch();
    tk::flush_display();
    const auto end = steady_clock::now();
    next_dispatch_ =
        end + std::clamp<steady_clock::duration>(4 * (end - start), milliseconds(5), milliseconds(100));
}

}  // namespace brindle
