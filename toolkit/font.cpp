#include "toolkit/font.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "toolkit/font_impl.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"

namespace brindle::tk {

namespace {

constexpr int PIXELS[FONT_SCALES] = {11, 13, 15, 19};
constexpr std::size_t FALLBACKS_MAX = 12;

int up(int screen_pixels) {
    return static_cast<int>(std::ceil(screen_pixels / scale() - 0.001));
}

std::unique_ptr<Font> open_font(std::string_view name, int font_scale) {
    const auto face = find_face(name);
    if (!face) return nullptr;
    auto impl = std::make_unique<Font::Impl>();
    impl->name = name;
    impl->font_scale = font_scale;
    impl->face = *face;
    impl->main = open_face(*face, PIXELS[font_scale] * scale(), true);
    return impl->main ? std::make_unique<Font>(std::move(impl)) : nullptr;
}

}  // namespace

int font_pixels(int font_scale) {
    return PIXELS[std::clamp(font_scale, 0, FONT_SCALES - 1)];
}

XftFont *Font::Impl::font_with(char32_t c) {
    if (XftCharExists(x_display(), main, c)) return main;
    const auto has = [c](XftFont *font) { return XftCharExists(x_display(), font, c) != 0; };
    const auto known = std::ranges::find_if(fallbacks_, has);
    if (known != fallbacks_.end()) return *known;
    if (fallbacks_.size() >= FALLBACKS_MAX) return nullptr;
    FcCharSet *needed = FcCharSetCreate();
    FcCharSetAddChar(needed, c);
    FcPattern *wanted = FcPatternDuplicate(main->pattern);
    FcPatternDel(wanted, FC_CHARSET);
    FcPatternDel(wanted, FC_FAMILY);
    FcPatternDel(wanted, FC_FILE);
    FcPatternAddCharSet(wanted, FC_CHARSET, needed);
    XftResult result{};
    FcPattern *found = XftFontMatch(x_display(), DefaultScreen(x_display()), wanted, &result);
    FcPatternDestroy(wanted);
    FcCharSetDestroy(needed);
    XftFont *font = found ? XftFontOpenPattern(x_display(), found) : nullptr;
    if (!font || !has(font)) {
        if (font) XftFontClose(x_display(), font);
        return nullptr;
    }
    return fallbacks_.emplace_back(font);
}

Glyph Font::Impl::find_glyph(char32_t c) {
    XftFont *font = font_with(c);
    if (!font) {
        constexpr char32_t replacement = 0xFFFD;
        font = c == replacement ? main : font_with(replacement);
        c = font ? replacement : U'?';
        if (!font) font = main;
    }
    Glyph glyph{font, XftCharIndex(x_display(), font, c), 0};
    XGlyphInfo extents{};
    XftGlyphExtents(x_display(), font, &glyph.index, 1, &extents);
    glyph.advance = extents.xOff;
    return glyph;
}

const Glyph &Font::Impl::glyph(char32_t c) {
    Glyph &known = c < ascii_.size() ? ascii_[c] : others_[c];
    if (!known.font) known = find_glyph(c);
    return known;
}

int Font::Impl::width_px(std::string_view text) {
    int width = 0;
    while (!text.empty()) width += glyph(next_character(text)).advance;
    return width;
}

void Font::Impl::place(std::string_view text, Point at, std::vector<XftGlyphFontSpec> &out) {
    while (!text.empty()) {
        const Glyph &drawn = glyph(next_character(text));
        out.push_back({drawn.font, drawn.index, static_cast<short>(at.x), static_cast<short>(at.y)});
        at.x += drawn.advance;
    }
}

Font::Font(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Font::~Font() = default;

const std::string &Font::name() const {
    return impl_->name;
}
int Font::font_scale() const {
    return impl_->font_scale;
}
int Font::width(std::string_view text) const {
    return up(impl_->width_px(text));
}
int Font::ascent() const {
    return up(impl_->main->ascent);
}
int Font::descent() const {
    return up(impl_->main->descent);
}
int Font::height_of_h() const {
    return up(impl_->main->ascent + impl_->main->descent);
}

const Font *find_font(std::string_view name, int font_scale) {
    if (font_scale < 0 || font_scale >= FONT_SCALES) return nullptr;
    open_display();
    using Fonts = std::map<std::pair<std::string, int>, std::unique_ptr<Font>>;
    static auto &fonts = *new Fonts;  // for good: the X connection outlives every static object
    const auto key = std::pair(std::string(name), font_scale);
    const auto known = fonts.find(key);
    if (known != fonts.end()) return known->second.get();
    return fonts.emplace(key, open_font(name, font_scale)).first->second.get();
}

const Font *default_font() {
    const Font *font = find_font("Liberation Sans", 1);
    return font ? font : find_font("lucida-normal", 1);
}

}  // namespace brindle::tk
