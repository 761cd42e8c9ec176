#include "gui/dialogs.hpp"

#include <algorithm>

#include "edit/change.hpp"
#include "gui/current_run.hpp"
#include "gui/drawing.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

tk::NoticeSpec ok_notice(tk::NoticePlace place, std::string_view message, bool silent) {
    tk::NoticeSpec spec;
    spec.place = place;
    spec.message = {std::string(message)};
    spec.buttons = {{"Ok", 1}};
    spec.silent = silent;
    return spec;
}

// Where the view has to start so that `at` is in it: where it is if it does already, else such that `at` is
// in its middle. Within the canvas in any case.
int start_with(int at, const tk::Scrollbar &bar) {
    const int length = bar.view_length();
    int start = bar.view_start();
    if (at <= start || at >= start + length) start = at - length / 2;
    return std::max(0, std::min(start, bar.object_length() - length));
}

// The window may have turned to another tree since a command was begun at the node.
void show_tree_of(const Node *node, TreeWindow &tw) {
    if (node->tree() != tw.tree_number) show_nr(node->tree(), tw);
}

// The windows that show a changed tree lay it out and draw it again.
struct Repainter final : ChangeListener {
    void changed(const Corpus &, const Change &change) override {
        for (const auto &window : tree_windows()) {
            if (window->tree_number != change.tree) continue;
            window->layout.reset();
            if (!running_window() && window->canvas) window->canvas->redraw();
        }
    }
};

}  // namespace

void prompt(tk::Notice &notice, std::string_view message, bool silent) {
    notice.spec = ok_notice(notice.spec.place, message, silent);
    notice.show();
}

void prompt_at_panel(tk::Panel &panel, std::string_view message, bool silent) {
    tk::notice_prompt(ok_notice(tk::place_on(panel), message, silent));
}

void prompt_at_node(const Node *node, std::string_view message, TreeWindow &tw, bool silent) {
    notice_at_node(node, ok_notice({}, message, silent), tw);
}

int notice_at_node(const Node *node, tk::NoticeSpec spec, TreeWindow &tw) {
    show_tree_of(node, tw);
    const tk::Point at = place_of(node, tw);
    make_visible(at.x, at.y, tw);
    spec.place = tk::place_at(*tw.canvas, at);
    return tk::notice_prompt(spec);
}

void check_active_GUI(TreeWindow &tw) {
    if (!is_laid_out(tw)) lay_out_current_tree(tw);
}

void tree_GUI_repaint(TreeWindow &) {
    for (const auto &window : tree_windows()) {
        window->layout.reset();
        if (window->canvas) window->canvas->redraw();
    }
}

void repaint_on_changes() {
    static Repainter repainter;
    the_corpus().listeners.push_back(&repainter);
}

void show_nr(int tree, TreeWindow &tw) {
    tw.tree_number = tree;
    if (tw.previous_button) tw.previous_button->set_inactive(tree <= 0);
    if (tw.next_button) tw.next_button->set_inactive(tree >= the_corpus().amount() - 1);
    if (tw.tree_slider) tw.tree_slider->set_value(tree + 1);
    tree_GUI_repaint(tw);
    tw.hscrollbar->set_view_start(0);
    tw.vscrollbar->set_view_start(0);
}

void make_visible(int x, int y, TreeWindow &tw) {
    tw.frame->show();
    check_active_GUI(tw);
    tw.hscrollbar->set_view_start(start_with(x, *tw.hscrollbar));
    tw.vscrollbar->set_view_start(start_with(y, *tw.vscrollbar));
    tw.canvas->redraw();
}

void show_foot(tk::Frame &frame, std::string_view text) {
    frame.set_footer(text);
}

void all_frames_busy(tk::Frame &main_frame, bool busy) {
    main_frame.set_busy(busy);
    for (const auto &frame : main_frame.subframes()) {
        frame->set_busy(busy);
        for (const auto &subframe : frame->subframes()) subframe->set_busy(busy);
    }
}

void position_frame_from_menu(tk::Frame &frame, const tk::Menu &menu, TreeWindow &) {
    frame.show_at(menu.last_screen_position());
}

void position_frame_from_button(tk::Frame &frame, const tk::Item &button, TreeWindow &) {
    const tk::Box box = button.screen_box();
    frame.show_at({box.x, box.y + box.h});
}

void position_frame_from_batchbox_button(tk::Frame &frame, const tk::Item &button, TreeWindow &) {
    const tk::Box box = button.screen_box();
    frame.show_at({box.x + box.w, box.y});
}

void text_ok_function(tk::Button &button) {
    handler_of(button)(window_of(button), *text_field_of(button));
}

}  // namespace brindle
