#pragma once
// Where the nodes of a tree stand: one pass from left to right that places leaves one after another on their
// level, centres a mother over her shown daughters, and pushes a whole subtree to the right where its mother
// would meet the text already on her level.
//
// Positions are kept in the nodes, which all windows showing a tree share; `layout_owner` says whose they
// are. All distances are pixels of the canvas; x grows to the right, y downward.
#include "display/layout_params.hpp"
#include "display/text_measure.hpp"
#include "model/forest.hpp"
#include "model/frontend.hpp"

namespace brindle {

// The view whose sizes and font gave the positions that the nodes hold now; null: nobody's. Set by
// tree_layout, read by whoever needs positions: another view lays its tree out first.
extern const TreeView *layout_owner;

// A view that goes is no owner any more.
void forget_layout_owner(const TreeView *view);

// Back to a new window's sizes, punctuation hidden.
void init_treesizes(LayoutParams &params, TreeView &view);

// Gives every shown node of the tree its x, syn_x, sem_x (with a tag) and lex_x (with a word), and the tree
// its width and height; the view becomes the owner. Hidden nodes keep what they had.
void tree_layout(const TreeView &view, const LayoutParams &params, TextMeasure &measure, TreeEntry &tree);

// The baseline of the node's category.
int get_node_y(const Node *node, const LayoutParams &params);

}  // namespace brindle
