#include "propose/propose.hpp"

#include <gtest/gtest.h>

#include "corpus/reader.hpp"
#include "edit/change.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "propose/literal_proposal.hpp"
#include "propose/run.hpp"
#include "stats/verify.hpp"
#include "support/random_edits.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

// Proposes tree t, and says where the result differs from the literal one; "" if nowhere.
std::string difference(Corpus &corpus, int t, Proposer &proposer, const LiteralProposal &expected) {
    const bool has_break = proposer.propose(t);
    if (expected.too_many) return "";
    std::string found;
    for_each_in_subtree(corpus.tree(t).root, [&](Node *node) {
        if (text_of(node->sem()) != expected.tags.at(node) ||
            node->selected() != expected.selected.contains(node))
            found += path_of(node) + ": " + std::string(text_of(node->sem())) + " for " +
                     expected.tags.at(node) + "\n";
    });
    return has_break == expected.has_break ? found : found + "break";
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
        Corpus corpus;
        read_trees(corpus, random_corpus(c.shape, random));
        for (auto &bucket : corpus.statistics->lex_table)
            for (LexEntry *word = bucket.first; word; word = word->next)
                if (random.chance(c.weight)) word->checked_count += 2'000'000'000;
        Proposer proposer(corpus);  // keeps what it knows from tree to tree
        for (int t = 0; t < corpus.amount(); ++t) {
            for (int i = random.below(4); i > 0; --i)
                set_checked(corpus, random.below(corpus.amount()), random.chance(0.5));
            if (random.chance(0.3)) {
                Node *node = random_node(corpus.tree(random.below(corpus.amount())).root, random);
                set_tag(corpus, node, random_tag(c.shape, random));
            }
            set_checked(corpus, t, false);
            const LiteralProposal expected = propose_literally(corpus, t, 3000);
            ASSERT_EQ(difference(corpus, t, proposer, expected), "") << "seed " << seed << ", tree " << t;
            ++compared;
            too_many += expected.too_many;
            built += !expected.too_many && !expected.has_break;
        }
        ASSERT_EQ(c.weight == 0 ? verify(corpus) : "", "") << "seed " << seed;
    }
    EXPECT_LT(too_many, compared / 2) << "of " << compared;
    EXPECT_GT(built, compared / 10);  // else hardly any combination was tried
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

// Proposes the last tree; its tags in document order, a star before those of selected nodes, and whether
// there was a break.
std::string proposed(Corpus &corpus) {
    const bool has_break = propose_tree(corpus, corpus.amount() - 1);
    std::string tags;
    for_each_in_subtree(corpus.trees.back().root, [&](const Node *node) {
        tags += (node->selected() ? "*" : "") + std::string(node->sem() ? node->sem()->view() : "-") + " ";
    });
    return tags + (has_break ? "break" : "");
}

TEST(Proposal, infers_a_mother_from_its_daughters) {
    TestCorpus c("* ( (S|f(d1) NP|n/john VP|v/walks))\n( (S|old NP/john VP/walks))");
    EXPECT_EQ(proposed(c), "f(d1) n v ");
    EXPECT_EQ(text_of(c.undo_of(c.at(".", 1)).undo_sem), "old");
    EXPECT_EQ(c.unsaved_changes, 3);
}

TEST(Proposal, says_no_match_where_checked_trees_are_silent) {
    TestCorpus c("( (S|s NP|n/john))\n( (S (X) (Y Z/john)))");
    EXPECT_EQ(proposed(c), "*NO_MATCH NO_MATCH *NO_MATCH NO_MATCH break");
}

TEST(Proposal, a_silent_daughter_does_not_stand_in_the_way_of_a_combination) {
    TestCorpus c("* ( (S|s NP|n/john VP|v/walks))\n( (S NN/john VP/walks))");
    EXPECT_EQ(proposed(c), "s NO_MATCH v ") << "the word was seen under another category only";
}

TEST(Proposal, falls_back_on_the_category_where_no_combination_is_known) {
    // NP over two daughters occurs, but never over DT and NN/cat: the category's own frequency decides.
    TestCorpus c(
        "* ( (S|s (NP|a DT/the NN|dog/dog) VP|v/barks))\n"
        "* ( (S|s (NP|b NN|cat/cat) VP|v/sleeps))\n"
        "( (S (NP DT/the NN/cat) VP/sleeps))");
    EXPECT_EQ(proposed(c), "s *a - cat v break");
}

TEST(Proposal, a_leaf_without_a_word_takes_its_categorys_most_frequent_tag) {
    TestCorpus c("* ( (S|s (NP|a N|n/x)))\n* ( (T (NP|b) (NP|b)))\n( (NP))");
    EXPECT_EQ(proposed(c), "b ");
}

TEST(Proposal, the_first_of_two_equally_probable_ones_wins) {
    TestCorpus c("* ( (S|second A|a/x))\n* ( (S|first A|a/x))\n( (S A/x))");
    EXPECT_EQ(proposed(c), "second a ");
}

TEST(Proposal, of_deep_and_wide_trees_needs_no_stack) {
    const int n = 100'000;
    std::string deep = "(S|a ", wide = "(S|a ";
    for (int i = 0; i < n; ++i) deep += "(N|b ", wide += "W|w/w ";
    deep += "W|w/w" + std::string(n + 1, ')');
    for (const std::string &text : {deep, wide + ")"}) {
        TestCorpus c("* (" + text + ")\n(" + text + ")");
        EXPECT_FALSE(propose_tree(c, 1));
        EXPECT_EQ(text_of(c.at(".", 1)->sem()), "a");
        EXPECT_EQ(text_of(c.at("1", 1)->sem()), text == deep ? "b" : "w");
    }
}

TEST(Proposal, of_the_examples_unchecked_trees_meets_no_break) {
    TestCorpus c(example("travel.trees"));
    int proposed = 0;
    for (int t = 0; t < c.amount(); ++t) {
        if (c.tree(t).checked) continue;
        EXPECT_FALSE(propose_tree(c, t)) << c.text(t);
        EXPECT_NE(c.at(".", t)->sem(), nullptr) << c.text(t);
        ++proposed;
    }
    EXPECT_EQ(proposed, 52);
}

TEST(Proposal, among_any_other_work_keeps_the_statistics_sound) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        TestCorpus c(random_corpus(seed, 8, 4));
        RandomEdits edits(c, seed, 4);
        edits.add({"propose", 4, [&](Node *node) { propose_tree(c, node->tree()); }});
        for (int i = 0; i < 100; ++i) {
            edits.step();
            ASSERT_EQ(verify(c), "") << "seed " << seed << ", step " << i;
        }
    }
}

}  // namespace
}  // namespace brindle::test
