// What mouse buttons and keys do on the canvas of a tree window.
#include "display/selection.hpp"
#include "model/traversal.hpp"
#include "windows/copy_mode.hpp"
#include "windows/information.hpp"
#include "windows/node_menu.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

void TreeWindow::pressed(const QMouseEvent &event, const Hit &hit) {
    if (event.button() != Qt::LeftButton && event.button() != Qt::MiddleButton &&
        event.button() != Qt::RightButton)
        return;
    if (is_disabled()) return;
    info_mode = hit.mode;
    if (event.button() == Qt::LeftButton) return select_pressed(hit);
    if (event.button() == Qt::RightButton) return menu_pressed(event, hit);
    if (hit.node)
        show_information(*this, *hit.node, event.modifiers() & Qt::ControlModifier,
                         event.globalPosition().toPoint());
}

void TreeWindow::select_pressed(const Hit &hit) {
    if (workbench_.copy) return hit.node ? copy_from(*hit.node, *this) : copy_missed(*this);
    if (!hit.node) return;
    select_click(hit.node);
    workbench_.repaint_all();
}

void TreeWindow::menu_pressed(const QMouseEvent &event, const Hit &hit) {
    if (workbench_.copy) return hit.node ? copy_from(*hit.node, *this) : copy_missed(*this);
    menu_place_ = event.globalPosition().toPoint();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!hit.node) {
        menu->setTitle("Preferences");
        fill_preferences(*menu, *this);
    } else if (hit.node->selected()) {
        menu->setTitle("Subtrees");
        fill_subtree_menu(*menu, *this, *hit.node);
    } else {
        menu->setTitle("Semantic Tag");
        fill_tag_menu(*menu, *this, *hit.node);
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
            canvas_->scroll_by(0, -step);
            return true;
        case Qt::Key_Down:
            canvas_->scroll_by(0, step);
            return true;
        case Qt::Key_Left:
            canvas_->scroll_by(-step, 0);
            return true;
        case Qt::Key_Right:
            canvas_->scroll_by(step, 0);
            return true;
        case Qt::Key_C:
            if (event.modifiers() != Qt::ControlModifier) return false;
            if (TreeWindow *running = workbench_.run().window()) running->stop_batch();
            return true;
        default:
            return false;
    }
}

Node *TreeWindow::first_selected() {
    Tree *tree = current_tree();
    for (Node *node = tree ? tree->root : nullptr; node; node = next_in_document(node, tree->root))
        if (node->selected()) return node;
    return nullptr;
}

}  // namespace brindle
