#pragma once
// The names of the fonts that trees are written in: those of the menu "font-style", such as "times-italic",
// or a family, with such a style or without one.
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

inline constexpr const char *start_font = "lucidasans-bold";

struct FontName {
    std::vector<std::string> families;  // the first that is installed is meant
    std::string generic;                // what stands in for all of them; "": nothing does
    bool bold = false;                  // tags and words too; categories are bold in any case
    bool italic = false;
};

FontName parse_font_name(std::string_view name);

}  // namespace brindle
