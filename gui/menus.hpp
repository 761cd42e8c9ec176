#pragma once
// The three pop-up menus of a tree canvas.
#include <memory>
#include <string_view>

#include "gui/tree_window.hpp"

namespace brindle {

// "Semantic Tag", for an unselected node.
std::unique_ptr<tk::Menu> tag_menu(TreeWindow &tw);
// "Subtrees", for a selected node.
std::unique_ptr<tk::Menu> subtree_menu(TreeWindow &tw);
// "Preferences", for empty canvas.
std::unique_ptr<tk::Menu> preferences(TreeWindow &tw);

// Marks the entries of "Preferences" that hold now.
void mark_preferences(TreeWindow &tw);

// The font scale, 0..3, that an entry of "font-size" stands for; -1: no such entry.
int font_scale_of(std::string_view entry);

// The entry of "punctuation" that shows it.
inline constexpr std::string_view show_punctuation_entry = "show it";

}  // namespace brindle
