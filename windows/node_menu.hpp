#pragma once
// The three menus of a tree canvas, and what their entries do. The menu bar has the same entries.
class QMenu;

namespace brindle {

class Node;
class TreeWindow;

// "Semantic Tag": the node's tag, and those of its tree.
void fill_tag_menu(QMenu &menu, TreeWindow &window, Node &node);

// "Subtrees": what works on the selected nodes around the node.
void fill_subtree_menu(QMenu &menu, TreeWindow &window, Node &node);

// "Preferences": fonts, sizes, punctuation; a mark stands before what is chosen now.
void fill_preferences(QMenu &menu, TreeWindow &window);

}  // namespace brindle
