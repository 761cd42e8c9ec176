#include "corpus/cats.hpp"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(cats, the_same_key_means_different_things_with_and_without_daughters) {
    EXPECT_EQ(transl("NP", false), "Proper noun, singular");
    EXPECT_EQ(transl("NP", true), "Noun phrase");
    EXPECT_EQ(transl("PP", false), "Personal pronoun");
    EXPECT_EQ(transl("PP", true), "Prepositional phrase");
    EXPECT_EQ(transl("?", false), "Question mark");
    EXPECT_EQ(transl("?", true), "Unsure attachment of constituent");
}

TEST(cats, quotes_and_ends_of_both_lists) {
    EXPECT_EQ(transl("EX", false), "Existential \"there\"");
    EXPECT_EQ(transl("TO", false), "\"to\"");
    EXPECT_EQ(transl("0", false), "Zero complementizer");
    EXPECT_EQ(transl("*", false), "Zero pronoun");
    EXPECT_EQ(transl("NIL", false), "Null element");
    EXPECT_EQ(transl(".", false), "Full stop");
    EXPECT_EQ(transl("SBAR", true), "Clause introduced by a (possibly empty) subordinating conjunction");
    EXPECT_EQ(transl("ADJP", true), "Adjective phrase");
}

TEST(cats, only_whole_keys_of_the_right_list_are_known) {
    for (const char *category : {"NN-SBJ", "np", "S1", "", "S"})
        EXPECT_EQ(transl(category, false), "Unknown label?!");
    for (const char *category : {"NN", "vp", "SBA", "."})
        EXPECT_EQ(transl(category, true), "Unknown label?!");
}

}  // namespace
}  // namespace brindle
