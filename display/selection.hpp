#pragma once
// What a click on a node selects, worked out without a window.
#include "model/node.hpp"

namespace brindle {

// The SELECT click on a node. What it does depends on whether the node, its mother and its first daughter are
// selected: repeated clicks on a node whose mother is unselected give the node alone, the node with its
// subtree, nothing. Nothing is drawn.
void select_click(Node *node);

// The first selected node of a tree, from left to right and mothers first; null: there is none.
Node *first_selected(Node *root);

}  // namespace brindle
