#include "drawing/fonts.hpp"

#include <QChar>
#include <QFontDatabase>
#include <QRawFont>

#include <algorithm>
#include <array>

#include "drawing/text.hpp"

namespace brindle {
namespace {

constexpr std::array<int, nr_of_font_scales> heights{11, 13, 15, 19};  // in pixels

// For characters that the family lacks.
QFont::StyleHint hint_of(const std::string &generic) {
    if (generic.empty()) return QFont::AnyStyle;
    return generic == "serif" ? QFont::Serif : generic == "monospace" ? QFont::Monospace : QFont::SansSerif;
}

bool is_drawn(char32_t c) {
    const bool variation_selector = (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xE0100 && c <= 0xE01EF);
    const auto category = QChar::category(c);
    return !variation_selector && !QChar::isSpace(c) && category != QChar::Other_Control &&
           category != QChar::Other_Format;
}

}  // namespace

std::optional<TreeFonts> find_tree_fonts(std::string_view name, int font_scale) {
    if (font_scale < 0 || font_scale >= nr_of_font_scales) return std::nullopt;
    const FontName wanted = parse_font_name(name);
    const auto found = std::ranges::find_if(wanted.families, [](const std::string &family) {
        return QFontDatabase::hasFamily(to_qstring(family));
    });
    const std::string &family = found == wanted.families.end() ? wanted.generic : *found;
    if (family.empty()) return std::nullopt;
    QFont font(to_qstring(family));
    font.setStyleHint(hint_of(wanted.generic));
    font.setPixelSize(heights[static_cast<std::size_t>(font_scale)]);
    font.setItalic(wanted.italic);
    font.setBold(wanted.bold);
    QFont category = font;
    category.setBold(true);
    return TreeFonts{category, font, font};
}

int nearest_font_scale(int pixels) {
    const auto distance = [pixels](int height) { return std::abs(height - pixels); };
    return static_cast<int>(std::ranges::min_element(heights, {}, distance) - heights.begin());
}

std::u32string characters_without_font(const CharacterSet &set, const QFont &usual) {
    std::u32string missing = set.characters();
    std::erase_if(missing, [](char32_t c) { return !is_drawn(c); });
    const auto drop_those_of = [&missing](const QFont &font) {
        const QRawFont opened = QRawFont::fromFont(font);
        std::erase_if(missing, [&](char32_t c) { return opened.supportsCharacter(c); });
    };
    drop_those_of(usual);
    for (const QString &family : QFontDatabase::families()) {
        if (missing.empty()) break;
        drop_those_of(QFont(family));
    }
    return missing;
}

}  // namespace brindle
