#include "propose/propose.hpp"

#include <gtest/gtest.h>

#include "corpus/readtrees.hpp"
#include "model/forest.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "propose/literal_proposal.hpp"
#include "stats/changes.hpp"
#include "stats/links.hpp"
#include "stats/verify.hpp"
#include "support/corpus.hpp"
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

class LiterallyProposed : public testing::TestWithParam<ShapeCase> {};

TEST_P(LiterallyProposed, is_what_the_proposal_is) {
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
        ASSERT_EQ(c.weight == 0 ? verify_tables() : "", "") << "seed " << seed;
    }
    EXPECT_LT(too_many, compared / 2) << "of " << compared;
    EXPECT_GT(built, compared / 10);  // else hardly any combination was tried
    reset_all();
}

INSTANTIATE_TEST_SUITE_P(Shapes, LiterallyProposed,
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

// Proposes the last tree; its tags in document order, a star before those of selected nodes.
std::string proposed() {
    batch_propose(amount - 1);
    std::string tags;
    for_each_in_subtree(forest.back().root, [&](Node *node) {
        tags += (tags.empty() ? "" : " ") + std::string(node->selected ? "*" : "") +
                std::string(node->sem ? node->sem->view() : "-");
    });
    return tags;
}

TEST(Proposal, infers_a_mother_from_its_daughters) {
    const Corpus c("* ( (S|f(d1) NP|n/john VP|v/walks))\n( (S|old NP/john VP/walks))");
    EXPECT_EQ(proposed(), "f(d1) n v");
    EXPECT_FALSE(prob_break);
    EXPECT_EQ(text_of(c.at(".", 1)->undo_sem), "old");
    EXPECT_EQ(MODIFIED, 3);
}

TEST(Proposal, says_no_match_where_checked_trees_are_silent) {
    const Corpus c("( (S|s NP|n/john))\n( (S (X) (Y Z/john)))");
    EXPECT_EQ(proposed(), "*NO_MATCH NO_MATCH *NO_MATCH NO_MATCH");
    EXPECT_TRUE(prob_break);
}

TEST(Proposal, a_word_seen_under_other_categories_only_has_no_candidate) {
    const Corpus c("* ( (S|s NP|n/john VP|v/walks))\n( (S NN/john VP/walks))");
    EXPECT_EQ(proposed(),
              "s NO_MATCH v");  // the silent daughter does not stand in the way of the combination
    EXPECT_FALSE(prob_break);
}

TEST(Proposal, falls_back_on_the_category_where_no_combination_is_known) {
    // NP over two daughters occurs, but never over DT and NN/cat: the category's own frequency decides.
    const Corpus c(
        "* ( (S|s (NP|a DT/the NN|dog/dog) VP|v/barks))\n"
        "* ( (S|s (NP|b NN|cat/cat) VP|v/sleeps))\n"
        "( (S (NP DT/the NN/cat) VP/sleeps))");
    EXPECT_EQ(proposed(), "s *a - cat v");
    EXPECT_TRUE(prob_break);
}

TEST(Proposal, a_leaf_without_a_word_takes_its_categorys_most_frequent_tag) {
    const Corpus c("* ( (S|s (NP|a N|n/x)))\n* ( (T (NP|b) (NP|b)))\n( (NP))");
    EXPECT_EQ(proposed(), "b");
}

TEST(Proposal, the_first_of_two_equally_probable_ones_wins) {
    const Corpus c("* ( (S|second A|a/x))\n* ( (S|first A|a/x))\n( (S A/x))");
    EXPECT_EQ(proposed(), "second a");
}

// Two trees of that many nodes below each other, or beside each other; the first is checked.
void propose_large(int nodes, bool deep) {
    std::string text = "(S|a ";
    for (int i = 0; i < nodes; ++i) text += deep ? "(N|b " : "W|w/w ";
    text += deep ? "W|w/w" + std::string(static_cast<std::size_t>(nodes), ')') + ")" : ")";
    read_forest("* (" + text + ")\n(" + text + ")", "");
    batch_propose(1);
    const Node *root = forest[1].root;
    EXPECT_FALSE(prob_break);
    EXPECT_EQ(text_of(root->sem), "a");
    EXPECT_EQ(text_of(root->dtrs->sem), deep ? "b" : "w");
    reset_all();
}

TEST(Proposal, of_deep_and_wide_trees_needs_no_stack) {
    propose_large(100000, true);
    propose_large(100000, false);
}

}  // namespace
}  // namespace brindle::test
