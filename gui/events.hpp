#pragma once
// What pointer buttons and keys do on a tree canvas.
#include "gui/tree_window.hpp"

namespace brindle {

// The canvas's event callback.
void events(tk::Canvas &canvas, const tk::Event &event);

// The SELECT click on a node: changes the selection and repaints.
void select_down(Node *node, TreeWindow &tw);

// A click on a node and on empty canvas while a copy is pending.
void copy_to(Node *clicked, TreeWindow &tw);
void missed(TreeWindow &tw);

// Control-C: ends the batch run that goes on, if one does.
void interrupt_run();

// Scrolls by 16 pixels; the code is EVENT_UP, EVENT_DOWN, EVENT_LEFT or EVENT_RIGHT.
void adjust_view(int code, TreeWindow &tw);

// True, after telling the user, when the shown tree is open in a syntax editor.
bool tree_disabled(TreeWindow &tw);

}  // namespace brindle
