#include "base/text.hpp"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(text, a_character_that_is_cut_waits_for_its_rest) {
    EXPECT_EQ(unfinished_tail("ab"), 0U);
    EXPECT_EQ(unfinished_tail("ab\xC3"), 1U);
    EXPECT_EQ(unfinished_tail("ab\xE2\x82"), 2U);
    EXPECT_EQ(unfinished_tail("ab\xE2\x82\xAC"), 0U);
}

TEST(text, a_beginning_ends_between_two_characters) {
    EXPECT_EQ(beginning("ab\xE2\x82\xAC", 4), "ab");
    EXPECT_EQ(beginning("ab\xE2\x82\xAC", 5), "ab\xE2\x82\xAC");
    EXPECT_EQ(beginning("ab", 9), "ab");
}

TEST(text, messages_lose_what_cannot_be_shown) {
    EXPECT_EQ(clean_message("You cannot use '/'; it is\n\x1b\n \t\t\t\tdefined"),
              "You cannot use '/'; it is\ndefined");
    EXPECT_EQ(clean_message("\nWord: dog\n\nNumber: 3\n"), "Word: dog\n\nNumber: 3");
    EXPECT_EQ(clean_message("a\tb"), "a b");
    EXPECT_EQ(clean_message("\n\x1b\n"), "");
}

}  // namespace
}  // namespace brindle
