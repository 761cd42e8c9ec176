// Texts between the locale and Unicode, and what fonts can show.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include <clocale>
#include <cstdlib>

#include "base/text.hpp"
#include "drawing/fonts.hpp"
#include "drawing/text.hpp"

namespace brindle {
namespace {

class Locale {
  public:
    explicit Locale(const char *name) : known(std::setlocale(LC_CTYPE, name) != nullptr) {}
    ~Locale() { std::setlocale(LC_CTYPE, "C.UTF-8"); }
    const bool known;
};

TEST(text, any_bytes_come_back_as_they_were) {
    for (const std::string text :
         {"plain", "caf\xC3\xA9", "bad \xE9\xFF", "cut \xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
          "\xF4\x8F\xBE\x85 private", "\xF4\x8F\xBF\xBF", "\xF5\x80"})
        EXPECT_EQ(to_locale(to_qstring(text)), text);
    EXPECT_EQ(to_qstring("caf\xC3\xA9"), u"caf\u00E9"_qs);
    EXPECT_EQ(to_shown("\xFFz\xC3"), u"\uFFFDz\uFFFD"_qs);
}

TEST(text, bytes_above_ascii_mean_nothing_in_the_c_locale_but_survive) {
    const Locale locale("C");
    EXPECT_EQ(to_locale(to_qstring("caf\xE9")), "caf\xE9");
    EXPECT_EQ(to_shown("\xE9"), u"\uFFFD"_qs);
    EXPECT_EQ(to_locale(u"\u20AC"_qs), "?");
}

// Few systems have an 8-bit locale; most can make one.
TEST(text, an_8_bit_locale_is_converted_both_ways) {
    const QTemporaryDir directory;
    QProcess::execute("localedef",
                      {"-i", "en_US", "-f", "ISO-8859-15", directory.filePath("en_US.ISO-8859-15")});
    setenv("LOCPATH", directory.path().toLocal8Bit().constData(), 1);
    const Locale locale("en_US.ISO-8859-15");
    unsetenv("LOCPATH");
    if (!locale.known) GTEST_SKIP() << "no 8-bit locale can be made";
    EXPECT_EQ(to_qstring("caf\xE9 \xA4"), u"caf\u00E9 \u20AC"_qs);
    EXPECT_EQ(to_locale(u"caf\u00E9 \u20AC \u4E3B"_qs), "caf\xE9 \xA4 ?");
    EXPECT_EQ(to_locale(to_qstring("\x85")), "\x85");
    EXPECT_EQ(unfinished_tail("\xC3"), 0U);
}

TEST(fonts, names_have_families_styles_and_sizes) {
    const auto start = find_tree_fonts(start_font, 2);
    ASSERT_TRUE(start);
    EXPECT_TRUE(start->category.bold() && !start->tag.bold() && !start->word.bold());
    EXPECT_EQ(start->word.pixelSize(), 15);
    const auto times = find_tree_fonts("times-bold-italic", 0);
    ASSERT_TRUE(times);
    EXPECT_TRUE(times->word.bold() && times->word.italic() && times->category.italic());
    EXPECT_NE(times->word.family(), start->word.family());
    EXPECT_FALSE(find_tree_fonts("times-roman", 1)->word.italic());
    EXPECT_FALSE(find_tree_fonts("no-such-family", 1));
    EXPECT_FALSE(find_tree_fonts("times-bold", nr_of_font_scales));
    const std::string installed = to_locale(start->word.family());
    ASSERT_TRUE(find_tree_fonts(installed + "-italic", 3));
    EXPECT_EQ(find_tree_fonts(installed + "-italic", 3)->tag.family(), start->word.family());
}

TEST(fonts, only_what_would_be_a_box_is_missing) {
    CharacterSet set;
    // No font has a character that is none; joiners and wide blanks are not drawn.
    for (const char *label :
         {"plain", "\xC3\xA9t\xC3\xA9", "\xF3\xB0\x80\x81", "a\xE2\x80\x8D\xE3\x80\x80", "\xFF"})
        set.add(label);
    EXPECT_EQ(set.characters(), U"\u00E9\u200D\u3000\U000F0001");
    EXPECT_EQ(characters_without_font(set, find_tree_fonts(start_font, 2)->word), U"\U000F0001");
}

}  // namespace
}  // namespace brindle
