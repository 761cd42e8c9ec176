#include "drawing/fonts.hpp"

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

#include "drawing/text.hpp"

namespace brindle {

namespace {

constexpr std::array<int, nr_of_font_scales> heights{11, 13, 15, 19};

struct Alias {
    std::string_view name;
    const char *families;  // tried in this order; the last always answers
    QFont::StyleHint hint;
};

constexpr Alias aliases[] = {
    {"lucidasans", "Lucida Sans,DejaVu Sans,Liberation Sans,Nimbus Sans,sans-serif", QFont::SansSerif},
    {"lucida", "Lucida,Lucida Sans,DejaVu Sans,Liberation Sans,sans-serif", QFont::SansSerif},
    {"times", "Liberation Serif,Nimbus Roman,Times New Roman,DejaVu Serif,serif", QFont::Serif},
    {"courier", "Liberation Mono,Nimbus Mono PS,Courier New,DejaVu Sans Mono,monospace", QFont::Monospace},
    {"serif", "DejaVu Serif,Liberation Serif,Nimbus Roman,Times New Roman,serif", QFont::Serif},
};

struct Style {
    std::string_view suffix;
    bool bold;
    bool italic;
};

constexpr Style styles[] = {
    {"-normal", false, false},    {"-roman", false, false},    {"-medium", false, false},
    {"-bold-italic", true, true}, {"-bolditalic", true, true}, {"-bold", true, false},
    {"-italic", false, true},     {"-oblique", false, true},
};

// The font of the name without its style, if its family is installed.
std::optional<QFont> find_family(std::string_view name) {
    const auto installed = [](const QString &family) { return QFontDatabase::hasFamily(family); };
    const auto *alias = std::ranges::find(aliases, name, &Alias::name);
    if (alias == std::end(aliases)) {
        const QString family = to_qstring(name);
        return installed(family) ? std::optional(QFont(family)) : std::nullopt;
    }
    const QStringList families = QString(alias->families).split(',');
    const auto found = std::ranges::find_if(families.begin(), families.end() - 1, installed);
    QFont font(*found);
    font.setStyleHint(alias->hint);
    return font;
}

}  // namespace

std::optional<TreeFonts> find_tree_fonts(std::string_view name, int font_scale) {
    if (font_scale < 0 || font_scale >= nr_of_font_scales) return std::nullopt;
    const auto *style = std::ranges::find_if(
        styles, [&](const Style &s) { return name.size() > s.suffix.size() && name.ends_with(s.suffix); });
    const bool styled = style != std::end(styles);
    const auto family = find_family(styled ? name.substr(0, name.size() - style->suffix.size()) : name);
    if (!family) return std::nullopt;
    QFont font = *family;
    font.setPixelSize(heights[static_cast<std::size_t>(font_scale)]);
    font.setItalic(styled && style->italic);
    font.setBold(styled && style->bold && name != start_font);
    QFont category = font;
    category.setBold(true);
    return TreeFonts{category, font, font};
}

int nearest_font_scale(int pixels) {
    const auto distance = [pixels](int height) { return std::abs(height - pixels); };
    return static_cast<int>(std::ranges::min_element(heights, {}, distance) - heights.begin());
}

}  // namespace brindle
