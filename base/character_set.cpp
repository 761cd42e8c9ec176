#include "base/character_set.hpp"

#include <algorithm>

#include "base/text.hpp"

namespace brindle {

void CharacterSet::add(std::string_view text) {
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) return;
    while (!text.empty()) {
        const Character character = first_character(text);
        if (character.length > 0) has_[character.code] = character.code >= 0x80;
        text.remove_prefix(std::max<std::size_t>(character.length, 1));
    }
}

std::u32string CharacterSet::characters() const {
    std::u32string characters;
    for (std::size_t c = 0; c < has_.size(); ++c)
        if (has_[c]) characters += static_cast<char32_t>(c);
    return characters;
}

}  // namespace brindle
