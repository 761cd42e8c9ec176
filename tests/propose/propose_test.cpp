#include "propose/propose.hpp"

#include <gtest/gtest.h>

#include "model/forest.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "propose/literal_proposal.hpp"
#include "stats/changes.hpp"
#include "stats/links.hpp"
#include "support/random_corpus.hpp"

namespace brindle::test {
namespace {

// Proposes tree t and says where the result differs from the literal one; "" if nowhere. `too_many` is raised
// when the literal enumeration had to give up.
std::string difference(int t, int &too_many) {
    const LiteralProposal expected = propose_literally(forest[std::size_t(t)].root, 3000);
    batch_propose(t);
    if (expected.too_many) return ++too_many, "";
    std::string found;
    for_each_in_subtree(forest[std::size_t(t)].root, [&](Node *node) {
        if (text_of(node->sem) != expected.tags.at(node) ||
            node->selected != expected.selected.contains(node))
            found += path_of(node) + ": " + std::string(text_of(node->sem)) + " for " +
                     expected.tags.at(node) + "\n";
    });
    if (prob_break != expected.prob_break) found += "prob_break";
    return found;
}

struct ShapeCase {
    const char *name;
    RandomShape shape;
    int corpora;
    double weight;  // share of the words that are made as good as impossible, so that products vanish
};

void PrintTo(const ShapeCase &c, std::ostream *out) {
    *out << c.name;
}

class Proposal : public testing::TestWithParam<ShapeCase> {};

TEST_P(Proposal, is_that_of_the_literal_enumeration) {
    const ShapeCase &c = GetParam();
    int too_many = 0, compared = 0, built = 0;
    for (int seed = 0; seed < c.corpora; ++seed) {
        Random random(static_cast<unsigned>(seed));
        make_random_corpus(c.shape, random);
        for (auto &bucket : lex_table)
            for (LexEntry *word = bucket.first; word; word = word->next)
                if (random.chance(c.weight)) word->checked_count += 2'000'000'000;
        for (int t = 0; t < amount; ++t) {
            for (int i = random.below(4); i > 0; --i) set_checked(random.below(amount), random.chance(0.5));
            set_checked(t, false);
            ASSERT_EQ(difference(t, too_many), "") << "seed " << seed << ", tree " << t;
            ++compared;
            if (!prob_break) ++built;
        }
    }
    EXPECT_LT(too_many, compared / 2) << "of " << compared;
    EXPECT_GT(built, compared / 10);  // else hardly any combination was tried
    reset_forest();
    tables_init();
}

INSTANTIATE_TEST_SUITE_P(Shapes, Proposal,
                         testing::Values(ShapeCase{"small", {}, 1000, 0},
                                         ShapeCase{"few_labels", {12, 4, 2, 1, 2, 2, 0.8}, 300, 0},
                                         ShapeCase{"one_category", {20, 3, 3, 1, 2, 3, 0.9}, 200, 0},
                                         ShapeCase{"unary_chains", {15, 8, 1, 2, 3, 3, 0.8}, 200, 0},
                                         ShapeCase{"many_tags", {30, 3, 2, 1, 8, 2, 0.9}, 50, 0},
                                         ShapeCase{"patterns", {12, 4, 3, 2, 3, 3, 0.8, 2, 0.2}, 300, 0},
                                         ShapeCase{"many_contexts", {250, 2, 1, 1, 12, 1, 0.8}, 20, 0},
                                         ShapeCase{"vanishing", {10, 3, 30, 2, 2, 20, 0.9, 1, 0.02}, 25, 1},
                                         ShapeCase{
                                             "some_vanishing", {10, 3, 30, 2, 2, 20, 0.9, 1, 0.02}, 25, 0.7},
                                         ShapeCase{"nothing_checked", {3, 4, 3, 2, 2, 3, 0}, 20, 0}),
                         [](const auto &c) { return std::string(c.param.name); });

}  // namespace
}  // namespace brindle::test
