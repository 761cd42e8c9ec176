#pragma once
// A font as the toolkit's files see it: Xft fonts, glyphs looked up and measured once.
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "toolkit/font.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

struct Glyph {
    XftFont *font = nullptr;  // null: not looked up yet
    FT_UInt index = 0;
    short advance = 0;
};

// A family with its style, as fontconfig is asked for it.
struct Face {
    std::string family;
    bool bold = false;
    bool italic = false;
};

struct Font::Impl {
    std::string name;
    int font_scale = 0;
    Face face;
    XftFont *main = nullptr;

    // The character's glyph, from the first font that has it.
    const Glyph &glyph(char32_t c);
    // Advance width of a locale text, px.
    int width_px(std::string_view text);
    // The place of each glyph of the text when drawn from there.
    void place(std::string_view text, Point at, std::vector<XftGlyphFontSpec> &out);

  private:
    Glyph find_glyph(char32_t c);
    XftFont *font_with(char32_t c);

    std::array<Glyph, 128> ascii_{};
    std::unordered_map<char32_t, Glyph> others_;
    std::vector<XftFont *> fallbacks_;
};

// The face's family if fontconfig has it, opened at that pixel size; null otherwise. With `any` the nearest
// family does.
XftFont *open_face(const Face &face, double pixels, bool any);

// The face that a font name stands for; nothing for a name that no installed family answers.
std::optional<Face> find_face(std::string_view name);

}  // namespace brindle::tk
