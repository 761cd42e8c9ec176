// Which installed family a font name stands for.
#include <strings.h>

#include <algorithm>
#include <string>

#include "toolkit/font_impl.hpp"

namespace brindle::tk {

namespace {

struct Alias {
    std::string_view name;
    std::string_view families[5];  // tried in this order; the last always answers
};

constexpr Alias ALIASES[] = {
    {"lucidasans", {"Lucida Sans", "DejaVu Sans", "Liberation Sans", "Nimbus Sans", "sans-serif"}},
    {"lucida", {"Lucida", "Lucida Sans", "DejaVu Sans", "Liberation Sans", "sans-serif"}},
    {"times", {"Liberation Serif", "Nimbus Roman", "Times New Roman", "DejaVu Serif", "serif"}},
    {"courier", {"Liberation Mono", "Nimbus Mono PS", "Courier New", "DejaVu Sans Mono", "monospace"}},
    {"serif", {"DejaVu Serif", "Liberation Serif", "Nimbus Roman", "Times New Roman", "serif"}},
};

struct Style {
    std::string_view suffix;
    bool bold;
    bool italic;
};

constexpr Style STYLES[] = {
    {"normal", false, false},   {"roman", false, false},  {"medium", false, false},
    {"bold", true, false},      {"italic", false, true},  {"bold-italic", true, true},
    {"bolditalic", true, true}, {"oblique", false, true},
};

// The nearest pattern that fontconfig has.
FcPattern *match(const Face &face, double pixels) {
    FcPattern *wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8 *>(face.family.c_str()));
    FcPatternAddInteger(wanted, FC_WEIGHT, face.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_MEDIUM);
    FcPatternAddInteger(wanted, FC_SLANT, face.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddDouble(wanted, FC_PIXEL_SIZE, pixels);
    XftResult result{};
    FcPattern *found = XftFontMatch(x_display(), DefaultScreen(x_display()), wanted, &result);
    FcPatternDestroy(wanted);
    return found;
}

bool is_family(FcPattern *pattern, const std::string &family) {
    FcChar8 *name = nullptr;
    for (int n = 0; FcPatternGetString(pattern, FC_FAMILY, n, &name) == FcResultMatch; ++n) {
        if (strcasecmp(reinterpret_cast<const char *>(name), family.c_str()) == 0) return true;
    }
    return false;
}

bool installed(const Face &face) {
    FcPattern *found = match(face, 12);
    const bool yes = found && is_family(found, face.family);
    if (found) FcPatternDestroy(found);
    return yes;
}

// A name without its style, and the style.
Face split_name(std::string_view name) {
    for (const Style &style : STYLES) {
        const std::size_t cut = name.size() - std::min(name.size(), style.suffix.size() + 1);
        if (cut > 0 && name[cut] == '-' && name.substr(cut + 1) == style.suffix) {
            Face face{std::string(name.substr(0, cut)), style.bold, style.italic};
            if (face.bold || !face.family.ends_with("-bold")) return face;
        }
    }
    return {std::string(name), false, false};
}

}  // namespace

XftFont *open_face(const Face &face, double pixels, bool any) {
    FcPattern *found = match(face, pixels);
    if (!found) return nullptr;
    if (!any && !is_family(found, face.family)) {
        FcPatternDestroy(found);
        return nullptr;
    }
    XftFont *font = XftFontOpenPattern(x_display(), found);  // takes the pattern over
    if (!font) FcPatternDestroy(found);
    return font;
}

std::optional<Face> find_face(std::string_view name) {
    Face face = split_name(name);
    const auto *alias = std::ranges::find(ALIASES, std::string_view(face.family), &Alias::name);
    if (alias == std::end(ALIASES)) return installed(face) ? std::optional(face) : std::nullopt;
    for (const std::string_view family : alias->families) {
        face.family = family;
        if (installed(face)) return face;
    }
    return face;
}

}  // namespace brindle::tk
