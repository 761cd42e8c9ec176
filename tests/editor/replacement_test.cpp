#include "editor/replacement.hpp"

#include <gtest/gtest.h>

#include "editor/subtree_text.hpp"
#include "model/request.hpp"
#include "model/traversal.hpp"
#include "stats/verify.hpp"
#include "support/corpus.hpp"
#include "support/random_corpus.hpp"
#include "support/table_image.hpp"

namespace brindle::test {
namespace {

constexpr const char *dog = "( (S|s1 (NP|s2 DT/the NN|s3/dog) VB/barks) )";

TEST(subtree_text, is_indented_with_leaves_bare) {
    const Corpus c(dog);
    EXPECT_EQ(write_tree_to_editor(c.at(".")),
              "\n(S|s1\n    (NP|s2\n        DT/the\n        NN|s3/dog)\n    VB/barks)");
    EXPECT_EQ(write_tree_to_editor(c.at("1")), "\n(NP|s2\n    DT/the\n    NN|s3/dog)");
    EXPECT_EQ(write_tree_to_editor(c.at("2")), "\nVB/barks");
}

TEST(subtree_text, a_chain_without_end_is_not_indented_without_end) {
    constexpr std::size_t levels = 20'000;
    std::string chain;
    for (std::size_t n = 0; n < levels; ++n) chain += "(A ";
    const Corpus c("(" + chain + "B/c" + std::string(levels, ')') + ")");
    const std::string text = write_tree_to_editor(c.at("."));
    EXPECT_LT(text.size(), levels * 1100);
    EXPECT_EQ(replace_subtree(0, c.at("."), text + "\n"), "");
    EXPECT_EQ(write_tree_to_editor(c.at(".")), text);
}

TEST(replacement, by_its_own_text_changes_no_count) {
    const Corpus c(dog);
    for (const char *path : {"1", "1.2", "2", "."}) {
        const TableImage before = table_image();
        EXPECT_EQ(replace_subtree(0, c.at(path), write_tree_to_editor(c.at(path)) + "\n"), "");
        EXPECT_EQ(difference(table_image(), before), "") << path;
    }
    EXPECT_EQ(c.text(), "(S|s1 (NP|s2 DT/the NN|s3/dog) VB/barks)");
    EXPECT_EQ(MODIFIED, 4);
}

TEST(replacement, takes_its_place_and_leaves_the_rest) {
    const Corpus c(dog);
    EXPECT_EQ(replace_subtree(0, c.at("1.1"), "(DT(Q) Q/the)"), "");
    EXPECT_EQ(replace_subtree(0, c.at("2"), "VP "), "");
    EXPECT_EQ(c.text(), "(S|s1 (NP|s2 (DT (Q) Q/the) NN|s3/dog) (VP))");
    Node *const root = forest[0].root;
    EXPECT_EQ(replace_subtree(0, root, "(T|t X/y)"), "");
    EXPECT_EQ(c.text(), "(T|t X/y)");
    EXPECT_EQ(tree_of(c.at("1")), &forest[0]);
    EXPECT_EQ(search("s1", LabelKind::SEM, MustExist::no), nullptr);
}

TEST(replacement, unchecks_its_tree_and_forgets_the_old_nodes_history) {
    const Corpus c(std::string("* ") + dog);
    c.tag("1", "new");
    c.tag("1", "newer");
    FILTER_NODE = c.at("1.2");
    EVAL_NODE = c.at("2");
    EXPECT_EQ(replace_subtree(0, c.at("1"), "(NP a)"), "");
    EXPECT_FALSE(forest[0].checked);
    EXPECT_EQ(FILTER_NODE, nullptr);
    EXPECT_EQ(EVAL_NODE, c.at("2"));
    for (const char *tag : {"s2", "new", "newer", "s3"})
        EXPECT_EQ(search(tag, LabelKind::SEM, MustExist::no), nullptr) << tag;
    EVAL_NODE = nullptr;
}

TEST(replacement, by_unsound_text_is_refused_and_changes_nothing) {
    const Corpus c(std::string("* ") + dog);
    const TableImage before = table_image();
    EXPECT_EQ(replace_subtree(0, c.at("1"), "(NP a"), "Error on or before line 1:\nUnmatched '('");
    EXPECT_EQ(replace_subtree(0, c.at("1"), "NP"), "Error on line 1:\nUnexpected end of tree");
    EXPECT_EQ(difference(table_image(), before), "");
    EXPECT_TRUE(forest[0].checked);
    EXPECT_EQ(MODIFIED, 0);
}

TEST(replacement, of_what_is_very_deep_by_what_is_very_wide) {
    std::string deep, wide = "(W";
    for (int i = 0; i < 100'000; ++i) {
        deep += "(D|d ";
        wide += " W|w/w";
    }
    const Corpus c("( (S X/x) )");
    EXPECT_EQ(replace_subtree(0, c.at("1"), deep + "E/e" + std::string(100'000, ')')), "");
    EXPECT_EQ(replace_subtree(0, c.at("1"), wide + ")"), "");
    EXPECT_EQ(nonterm("W")->count, 1);
    EXPECT_EQ(term("W")->count, 100'000);
}

TEST(is_in_scope, of_a_node_and_what_lies_below_it) {
    const Corpus c(dog);
    EXPECT_TRUE(is_in_scope(c.at("1"), c.at("1")));
    EXPECT_TRUE(is_in_scope(c.at("."), c.at("1.2")));
    EXPECT_FALSE(is_in_scope(c.at("1"), c.at("2")));
    EXPECT_FALSE(is_in_scope(c.at("1"), c.at(".")));
    EXPECT_FALSE(is_in_scope(c.at("1"), nullptr));
}

}  // namespace
}  // namespace brindle::test
