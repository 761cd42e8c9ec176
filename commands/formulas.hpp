#pragma once
// The expansion and evaluation of formulas in a window, for whoever does it beside the menu of a node.
#include <functional>

#include "corpus/information.hpp"
#include "gui/tree_window.hpp"

namespace brindle {

// For ExpansionOptions: a window that hides punctuation shows it when a formula refers to it.
std::function<void(Node *daughter)> show_hidden_in(TreeWindow &tw);

// Shows at its node why an expansion failed.
void show_error(const ExpansionError &error, TreeWindow &tw);

// The root's formula for the information format. One that cannot be made ends the work through `stop` and is
// shown at its node.
Formula evaluate_root(Node *root, TreeWindow &tw, const std::function<void()> &stop);

}  // namespace brindle
