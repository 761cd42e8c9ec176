#pragma once
// The three menus of a tree canvas, and what their entries do. The menu bar has the same entries.
#include <functional>

class QMenu;
class QString;

namespace brindle {

class Node;
class TreeWindow;

// "Semantic Tag": the node's tag, and those of its tree.
void fill_tag_menu(QMenu &menu, TreeWindow &window, Node &node);

// "Subtrees": what works on the selected nodes around the node.
void fill_subtree_menu(QMenu &menu, TreeWindow &window, Node &node);

// An entry that is one of several, with a mark if it is the chosen one.
void add_choice(QMenu &menu, const QString &label, bool chosen, std::function<void()> f);

// "Preferences": fonts, sizes, punctuation; a mark stands before what is chosen now.
void fill_preferences(QMenu &menu, TreeWindow &window);

}  // namespace brindle
