#include "display/font_names.hpp"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(font_names, have_a_family_and_a_style) {
    const FontName times = parse_font_name("times-bold-italic");
    EXPECT_TRUE(times.bold && times.italic);
    EXPECT_EQ(times.generic, "serif");
    const FontName own = parse_font_name("Noto Sans-oblique");
    EXPECT_EQ(own.families, std::vector<std::string>{"Noto Sans"});
    EXPECT_TRUE(own.italic && !own.bold && own.generic.empty());
    EXPECT_EQ(parse_font_name("-bold").families.front(), "-bold");
    EXPECT_FALSE(parse_font_name(start_font).bold);
    EXPECT_TRUE(parse_font_name("lucida-bold").bold);
}

}  // namespace
}  // namespace brindle
