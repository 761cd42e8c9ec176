#include "display/corpus_characters.hpp"

#include <gtest/gtest.h>

#include "support/test_corpus.hpp"

namespace brindle {
namespace {

TEST(corpus_characters, are_those_of_all_labels) {
    const test::TestCorpus corpus("( (S|\u00E9t\u00E9 (N\u00DFP NN/\u0916a\u0916)) )");
    const std::u32string found = characters_of(corpus).characters();
    EXPECT_EQ(found, U"\u00DF\u00E9\u0916");
    EXPECT_EQ(tell_missing_characters(found),
              "No installed font has 3 characters of this corpus: U+00DF U+00E9 U+0916");
    EXPECT_EQ(tell_missing_characters({}), "");
    EXPECT_TRUE(tell_missing_characters(U"abcdefghij").ends_with("U+0068 ..."));
}

}  // namespace
}  // namespace brindle
