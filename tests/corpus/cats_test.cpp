#include "corpus/cats.hpp"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(cats, the_same_key_means_different_things_with_and_without_daughters) {
    EXPECT_EQ(transl("NP", false), "Proper noun, singular");
    EXPECT_EQ(transl("NP", true), "Noun phrase");
    EXPECT_EQ(transl("?", false), "Question mark");
    EXPECT_EQ(transl("?", true), "Unsure attachment of constituent");
    EXPECT_EQ(transl(".", false), "Full stop");
    for (const char *category : {"NN-SBJ", "np", "S1", "", "S"})
        EXPECT_EQ(transl(category, false), "Unknown label?!");
    for (const char *category : {"NN", "vp", "SBA", "."})
        EXPECT_EQ(transl(category, true), "Unknown label?!");
}

}  // namespace
}  // namespace brindle
