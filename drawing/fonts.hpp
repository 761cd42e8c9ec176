#pragma once
// The fonts of trees, by the names that the menu "font-style" has, or by a family; what no font has.
#include <QFont>

#include <optional>
#include <string_view>

#include "base/character_set.hpp"
#include "display/font_names.hpp"
#include "display/layout_params.hpp"

namespace brindle {

// The fonts of one tree, of one family and size: what a node is written in.
struct TreeFonts {
    QFont category;
    QFont tag;
    QFont word;
};

// The fonts for a name such as "times-italic", in pixels of the font scale (0..3); none: no such family is
// installed.
std::optional<TreeFonts> find_tree_fonts(std::string_view name, int font_scale);

// The scale whose fonts come nearest to that height in pixels.
int nearest_font_scale(int pixels);

// The characters that no installed font has, so that they would be drawn as boxes. What is not drawn by
// itself (blanks, joiners, marks of direction) is never among them. The font given is asked first.
std::u32string characters_without_font(const CharacterSet &set, const QFont &usual);

}  // namespace brindle
