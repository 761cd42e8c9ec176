#pragma once
// Which characters of a corpus the installed fonts can show.
#include <QFont>

#include "base/character_set.hpp"

namespace brindle {

// Those that no installed font has, so that they would be drawn as boxes. What is not drawn by itself
// (blanks, joiners, marks of direction) is never among them. The font given is asked first.
std::u32string characters_without_font(const CharacterSet &set, const QFont &usual);

}  // namespace brindle
