#pragma once
// The three pop-up menus of a tree canvas.
#include <memory>

#include "gui/tree_window.hpp"

namespace brindle {

// "Semantic Tag", for an unselected node.
std::unique_ptr<tk::Menu> tag_menu(TreeWindow &tw);
// "Subtrees", for a selected node.
std::unique_ptr<tk::Menu> subtree_menu(TreeWindow &tw);
// "Preferences", for empty canvas.
std::unique_ptr<tk::Menu> preferences(TreeWindow &tw);

}  // namespace brindle
