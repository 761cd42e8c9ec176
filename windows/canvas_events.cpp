// What mouse buttons and keys do on the canvas of a tree window.
#include "display/information.hpp"
#include "display/selection.hpp"
#include "edit/change.hpp"
#include "windows/node_menu.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

void TreeWindow::pressed(const QMouseEvent &event, const Hit &hit) {
    const Qt::MouseButton button = event.button();
    if (button != Qt::LeftButton && button != Qt::MiddleButton && button != Qt::RightButton) return;
    if (is_disabled()) return;
    info_mode = hit.mode;
    const QPoint place = event.globalPosition().toPoint();
    if (button == Qt::MiddleButton) {
        if (hit.node) show_information(*hit.node, event.modifiers() & Qt::ControlModifier, place);
    } else if (workbench_.copy) {
        hit.node ? copy_from(*hit.node) : copy_missed();
    } else if (button == Qt::RightButton) {
        open_menu(hit.node, place);
    } else if (hit.node) {
        select_click(hit.node);
        workbench_.repaint_all();
    }
}

void TreeWindow::open_menu(Node *node, QPoint place) {
    menu_place_ = place;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!node) {
        menu->setTitle("Preferences");
        fill_preferences(*menu, *this);
    } else if (node->selected()) {
        menu->setTitle("Subtrees");
        fill_subtree_menu(*menu, *this, *node);
    } else {
        menu->setTitle("Semantic Tag");
        fill_tag_menu(*menu, *this, *node);
    }
    menu->setWindowTitle(menu->title());
    menu->popup(menu_place_);
}

// Keys that reach the canvas: those of a keypad, and what moves the view.
bool TreeWindow::key_pressed(const QKeyEvent &event) {
    constexpr int step = 16;
    switch (event.key()) {
        case Qt::Key_Plus:
        case Qt::Key_PageUp:
            actions_.next->trigger();
            return true;
        case Qt::Key_Minus:
        case Qt::Key_PageDown:
            actions_.previous->trigger();
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
            canvas_->scroll_by(0, event.key() == Qt::Key_Up ? -step : step);
            return true;
        case Qt::Key_Left:
        case Qt::Key_Right:
            canvas_->scroll_by(event.key() == Qt::Key_Left ? -step : step, 0);
            return true;
        case Qt::Key_C:
            if (event.modifiers() != Qt::ControlModifier) return false;
            workbench_.stop_batch();
            return true;
        default:
            return false;
    }
}

// Page by page; in place, if there is more than one.
void TreeWindow::show_information(Node &node, bool mothers, QPoint place) {
    enum Answer { ok = 0, more = 1 };
    const auto page_with_more = [&](std::string_view page) {
        const NoticeSpec spec{.message = std::string(page) + "\n...",
                              .buttons = {{"More..", more}, {"Ok", ok}},
                              .silent = true};
        return brindle::ask(this, spec, place) == more;
    };
    const auto last_page = information(corpus(), &node, info_mode, mothers, page_with_more);
    if (last_page) tell_at(&node, *last_page, true);
}

// ---------------------------------------------------------------- the copy mode

void TreeWindow::begin_copy(Node &node) {
    set_footer("Click on the node whose annotation \033\n\t\t\t\t\tyou want to copy to this node.");
    workbench_.copy = CopyRequest{&node, this};
}

void TreeWindow::copy_from(Node &clicked) {
    enum Answer { yes = 1, no = 2, cancel = 3 };
    const std::string tag(clicked.sem() ? clicked.sem()->view() : "(unlabeled)");
    const int answer = ask({.message = tag + "\nCopy this annotation?",
                            .buttons = {{"Yes", yes}, {"No", no}, {"Cancel", cancel}},
                            .silent = true});
    if (answer == no || !workbench_.copy) return;
    const CopyRequest request = *workbench_.copy;
    if (answer == yes && &clicked == request.node) {
        tell_at(&clicked, "Interesting choice!", true);
    } else if (answer == yes) {
        set_tag(corpus(), request.node, text_of(clicked.sem()));
        request.window->show_tree(request.node->tree());
    }
    workbench_.end_copy();
}

void TreeWindow::copy_missed() {
    enum Answer { again = 1, cancel = 3 };
    const int answer = ask({.message = "You missed!", .buttons = {{"Try again", again}, {"Cancel", cancel}}});
    if (answer == cancel) workbench_.end_copy();
}

}  // namespace brindle
