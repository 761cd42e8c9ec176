// A subtree goes to the syntax editor as a text and comes back as another.
#include <gtest/gtest.h>

#include "corpus/writetrees.hpp"
#include "edit/change.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

constexpr const char *dog = "( (S|s1 (NP|s2 DT/the NN|s3/dog) VB/barks) )";

TEST(subtree_text, is_indented_with_leaves_bare) {
    TestCorpus c(dog);
    EXPECT_EQ(write_tree_to_editor(c.at(".")),
              "\n(S|s1\n    (NP|s2\n        DT/the\n        NN|s3/dog)\n    VB/barks)");
    EXPECT_EQ(write_tree_to_editor(c.at("1")), "\n(NP|s2\n    DT/the\n    NN|s3/dog)");
    EXPECT_EQ(write_tree_to_editor(c.at("2")), "\nVB/barks");
}

TEST(subtree_text, a_chain_without_end_is_not_indented_without_end) {
    constexpr std::size_t levels = 20'000;
    std::string chain;
    for (std::size_t n = 0; n < levels; ++n) chain += "(A ";
    TestCorpus c("(" + chain + "B/c" + std::string(levels, ')') + ")");
    const std::string text = write_tree_to_editor(c.at("."));
    EXPECT_LT(text.size(), levels * 1100);
    EXPECT_FALSE(replace_subtree(c, c.at("."), text + "\n"));
    EXPECT_EQ(write_tree_to_editor(c.at(".")), text);
}

TEST(replacement, by_its_own_text_changes_nothing) {
    TestCorpus c(dog);
    for (const char *path : {"1", "1.2", "2", "."})
        EXPECT_FALSE(replace_subtree(c, c.at(path), write_tree_to_editor(c.at(path)) + "\n")) << path;
    EXPECT_EQ(c.text(), "(S|s1 (NP|s2 DT/the NN|s3/dog) VB/barks)");
    EXPECT_EQ(c.unsaved_changes, 4);
}

TEST(replacement, takes_its_place_and_leaves_the_rest) {
    TestCorpus c(dog);
    EXPECT_FALSE(replace_subtree(c, c.at("1.1"), "(DT(Q) Q/the)"));
    EXPECT_FALSE(replace_subtree(c, c.at("2"), "VP "));
    EXPECT_EQ(c.text(), "(S|s1 (NP|s2 (DT (Q) Q/the) NN|s3/dog) (VP))");
    EXPECT_FALSE(replace_subtree(c, c.at("."), "(T|t X/y)"));
    EXPECT_EQ(c.text(), "(T|t X/y)");
    EXPECT_EQ(c.statistics->find("s1", LabelKind::SEM), nullptr);
}

TEST(replacement, unchecks_its_tree_and_forgets_the_old_nodes_history) {
    TestCorpus c(std::string("* ") + dog);
    c.tag("1", "new");
    c.tag("1", "newer");
    EXPECT_FALSE(replace_subtree(c, c.at("1"), "(NP a)"));
    EXPECT_FALSE(c.tree(0).checked);
    for (const char *tag : {"s2", "new", "newer", "s3"})
        EXPECT_EQ(c.statistics->find(tag, LabelKind::SEM), nullptr) << tag;
}

TEST(replacement, of_what_is_very_deep_by_what_is_very_wide) {
    std::string deep, wide = "(W";
    for (int i = 0; i < 100'000; ++i) {
        deep += "(D|d ";
        wide += " W|w/w";
    }
    TestCorpus c("( (S X/x) )");
    EXPECT_FALSE(replace_subtree(c, c.at("1"), deep + "E/e" + std::string(100'000, ')')));
    EXPECT_FALSE(replace_subtree(c, c.at("1"), wide + ")"));
    EXPECT_EQ(c.nonterm("W")->count, 1);
    EXPECT_EQ(c.term("W")->count, 100'000);
}

TEST(is_below, of_a_node_and_what_lies_below_it) {
    TestCorpus c(dog);
    EXPECT_TRUE(is_below(c.at("1"), c.at("1")));
    EXPECT_TRUE(is_below(c.at("."), c.at("1.2")));
    EXPECT_FALSE(is_below(c.at("1"), c.at("2")));
    EXPECT_FALSE(is_below(c.at("1"), c.at(".")));
    EXPECT_FALSE(is_below(c.at("1"), nullptr));
}

}  // namespace
}  // namespace brindle::test
