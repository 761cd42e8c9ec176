#pragma once
// The character classes of the tree text, by table, so that the reader decides most bytes with one look.
#include <array>
#include <cstdint>

namespace brindle {

enum CharClass : std::uint8_t {
    BLANK = 0,
    GRAPHIC = 1,
    OPEN = 2,
    CLOSE = 3,
    BAR = 4,
    SLASH = 5,
    HIGH = 6,  // above 126: ask graphic_length
};

inline constexpr std::array<std::uint8_t, 256> char_class = [] {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned c = 0x21; c < 0x7f; ++c) classes[c] = GRAPHIC;
    for (unsigned c = 0x80; c < 0x100; ++c) classes[c] = HIGH;
    classes['('] = OPEN;
    classes[')'] = CLOSE;
    classes['|'] = BAR;
    classes['/'] = SLASH;
    return classes;
}();

inline CharClass class_of(char c) {
    return static_cast<CharClass>(char_class[static_cast<unsigned char>(c)]);
}

}  // namespace brindle
