#include "gui/events.hpp"

#include <algorithm>

#include "display/selection.hpp"
#include "gui/commands_table.hpp"
#include "gui/current_run.hpp"
#include "gui/dialogs.hpp"
#include "gui/drawing.hpp"
#include "gui/menus.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

void select_event(TreeWindow &tw, const tk::Event &event) {
    if (tree_disabled(tw)) return;
    Node *node = nodefind(tw, event.at);
    if (node && COPY_TO)
        copy_to(node, tw);
    else if (node)
        select_down(node, tw);
    else if (COPY_TO)
        missed(tw);
}

void adjust_event(TreeWindow &tw, const tk::Event &event) {
    if (tree_disabled(tw)) return;
    if (Node *node = nodefind(tw, event.at)) commands.displayinf(tw, *node, event);
}

void menu_event(TreeWindow &tw, const tk::Event &event) {
    if (tree_disabled(tw)) return;
    Node *node = nodefind(tw, event.at);
    if (node && COPY_TO) {
        copy_to(node, tw);
    } else if (node) {
        tk::Menu &menu = node->selected() ? *tw.subtrees_menu : *tw.annotation_menu;
        set_node(menu, node);
        menu.show(*tw.canvas, event);
    } else if (COPY_TO) {
        missed(tw);
    } else {
        mark_preferences(tw);
        tw.prefs_menu->show(*tw.canvas, event);
    }
}

void turn_page(TreeWindow &tw, ButtonCommand command, tk::Button *button) {
    if (button) command(tw, *button);
}

void key_event(TreeWindow &tw, const tk::Event &event) {
    switch (event.code) {
        case '+':
        case tk::EVENT_PAGE_UP:
            return turn_page(tw, commands.next, tw.next_button);
        case '-':
        case tk::EVENT_PAGE_DOWN:
            return turn_page(tw, commands.previous, tw.previous_button);
        case tk::EVENT_UP:
        case tk::EVENT_DOWN:
        case tk::EVENT_LEFT:
        case tk::EVENT_RIGHT:
            return adjust_view(event.code, tw);
        case tk::CODE_CTRL_C:
            return interrupt_run();
        default:
            return;
    }
}

}  // namespace

void events(tk::Canvas &canvas, const tk::Event &event) {
    if (event.negative) return;
    TreeWindow &tw = window_of(canvas);
    check_active_GUI(tw);
    switch (event.code) {
        case tk::EVENT_SELECT:
            return select_event(tw, event);
        case tk::EVENT_ADJUST:
            return adjust_event(tw, event);
        case tk::EVENT_MENU:
            return menu_event(tw, event);
        default:
            return key_event(tw, event);
    }
}

void select_down(Node *node, TreeWindow &tw) {
    select_click(node);
    tree_GUI_repaint(tw);
}

void adjust_view(int code, TreeWindow &tw) {
    constexpr int step = 16;
    const bool vertical = code == tk::EVENT_UP || code == tk::EVENT_DOWN;
    const bool back = code == tk::EVENT_UP || code == tk::EVENT_LEFT;
    tk::Scrollbar &bar = vertical ? *tw.vscrollbar : *tw.hscrollbar;
    const int start = bar.view_start();
    const int last = bar.object_length() - bar.view_length();
    if (back && start > 0)
        bar.set_view_start(std::max(start - step, 0));
    else if (!back && start < last)
        bar.set_view_start(std::min(start + step, last));
}

void interrupt_run() {
    if (TreeWindow *running = running_window()) commands.stop_batch(*running);
}

bool tree_disabled(TreeWindow &tw) {
    const Tree *tree = current_tree(tw);
    if (!tree || !tree->editing) return false;
    prompt(*tw.notice,
           "A syntax editor is active on this tree,\ntherefore this tree's interactivity is disabled.", true);
    return true;
}

}  // namespace brindle
