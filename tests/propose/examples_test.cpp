// What the example corpus promises: every unchecked tree can be annotated from the checked ones.
#include <gtest/gtest.h>

#include "propose/propose.hpp"
#include "support/corpus.hpp"

namespace brindle {
namespace {

TEST(examples, unchecked_trees_are_proposed_without_a_break) {
    const test::Corpus corpus(test::example("travel.trees"));
    int proposed = 0;
    for (int t = 0; t < amount; ++t) {
        if (corpus.tree(t).checked) continue;
        batch_propose(t);
        EXPECT_FALSE(prob_break) << corpus.text(t);
        EXPECT_NE(corpus.at(".", t)->sem, nullptr) << corpus.text(t);
        ++proposed;
    }
    EXPECT_EQ(proposed, 52);
}

}  // namespace
}  // namespace brindle
