#include "display/font_names.hpp"

#include <algorithm>

namespace brindle {
namespace {

struct Alias {
    std::string_view name;
    std::vector<std::string> families;
    std::string generic;
};

const std::vector<Alias> &aliases() {
    static const std::vector<Alias> all = {
        {"lucidasans", {"Lucida Sans", "DejaVu Sans", "Liberation Sans", "Nimbus Sans"}, "sans-serif"},
        {"lucida", {"Lucida", "Lucida Sans", "DejaVu Sans", "Liberation Sans"}, "sans-serif"},
        {"times", {"Liberation Serif", "Nimbus Roman", "Times New Roman", "DejaVu Serif"}, "serif"},
        {"courier", {"Liberation Mono", "Nimbus Mono PS", "Courier New", "DejaVu Sans Mono"}, "monospace"},
        {"serif", {"DejaVu Serif", "Liberation Serif", "Nimbus Roman", "Times New Roman"}, "serif"}};
    return all;
}

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

}  // namespace

FontName parse_font_name(std::string_view name) {
    FontName font;
    std::string_view family = name;
    const auto *style = std::ranges::find_if(
        styles, [&](const Style &s) { return name.size() > s.suffix.size() && name.ends_with(s.suffix); });
    if (style != std::end(styles)) {
        family.remove_suffix(style->suffix.size());
        font.bold = style->bold && name != start_font;  // which has bold categories alone
        font.italic = style->italic;
    }
    const auto alias = std::ranges::find(aliases(), family, &Alias::name);
    if (alias == aliases().end()) {
        font.families = {std::string(family)};
    } else {
        font.families = alias->families;
        font.generic = alias->generic;
    }
    return font;
}

}  // namespace brindle
