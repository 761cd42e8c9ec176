#pragma once
// The characters that the labels of a corpus are made of, and what is told of those that no font has.
#include <string>
#include <string_view>

#include "base/character_set.hpp"
#include "model/corpus.hpp"

namespace brindle {

CharacterSet characters_of(const Corpus &corpus);

// For the footer: how many are missing, and the first of them; "": none.
std::string tell_missing_characters(std::u32string_view missing);

}  // namespace brindle
