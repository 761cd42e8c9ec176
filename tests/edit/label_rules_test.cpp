#include "edit/label_rules.hpp"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(label_rules, characters_that_mark_labels_are_refused_by_name) {
    EXPECT_EQ(refuse_tag("a/b"),
              "You cannot use '/' in a semantic tag; it is\n\033\n \t\t\t\tdefined as START_LEX_TAG in "
              "conventions");
    EXPECT_EQ(refuse_category("a/b|c"),
              "You cannot use '|' in a syntactic tag; it is\n\033\n \t\t\t\tdefined as START_SEM_TAG in "
              "conventions");
    EXPECT_EQ(refuse_category("a/b"),
              "You cannot use '/' in a syntactic tag; it is\n\033\n \t\t\t\tdefined as START_LEX_TAG in "
              "conventions");
    EXPECT_FALSE(refuse_tag("a|b"));
}

TEST(label_rules, what_would_not_be_read_back_is_refused) {
    for (const char *tag : {"", "f(g(d1),d2)", "(a)", "a b", "caf\xc3\xa9"})
        EXPECT_FALSE(refuse_tag(tag)) << tag;
    for (const char *tag : {"f(", "f)", ")(", "f(a))(", "a\tb", "a\nb", "a\x01", "\xff"})
        EXPECT_TRUE(refuse_tag(tag)) << tag;
    for (const char *category : {"NP", "NP-SBJ=1", "a b", "."})
        EXPECT_FALSE(refuse_category(category)) << category;
    for (const char *category : {"(NP", "NP)", "N\tP"}) EXPECT_TRUE(refuse_category(category)) << category;
}

TEST(label_rules, lengths_count_bytes) {
    EXPECT_FALSE(refuse_tag(std::string(1023, 'x')));
    EXPECT_TRUE(refuse_tag(std::string(1024, 'x')));
    EXPECT_FALSE(refuse_category(std::string(127, 'x')));
    EXPECT_TRUE(refuse_category(std::string(128, 'x')));
}

}  // namespace
}  // namespace brindle
