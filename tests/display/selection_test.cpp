// What clicks select, for every state of a node, its mother and its first daughter.
#include "display/selection.hpp"

#include <gtest/gtest.h>

#include <string>

#include "support/test_corpus.hpp"

namespace brindle {
namespace {

// A tree of seven nodes: top with the daughters left and right, each of which has two daughters.
struct Selection : testing::Test {
    test::TestCorpus corpus{"( (T (L A B) (R A B)) )"};
    Node *top = corpus.at("."), *left = corpus.at("1"), *right = corpus.at("2");
    Node *l1 = corpus.at("1.1"), *l2 = corpus.at("1.2"), *r1 = corpus.at("2.1"), *r2 = corpus.at("2.2");

    // The selected nodes, one letter each, in document order: t l 1 2 r 3 4.
    std::string selected() const {
        std::string out;
        const Node *nodes[] = {top, left, l1, l2, right, r1, r2};
        for (int i = 0; i < 7; ++i)
            if (nodes[i]->selected()) out += "tl12r34"[i];
        return out;
    }
};

TEST_F(Selection, clicks_on_a_node_below_an_unselected_mother_cycle) {
    select_click(left);
    EXPECT_EQ(selected(), "l");
    select_click(left);
    EXPECT_EQ(selected(), "l12");
    select_click(left);
    EXPECT_EQ(selected(), "");
}

TEST_F(Selection, a_root_counts_as_below_an_unselected_mother) {
    select_click(top);
    EXPECT_EQ(selected(), "t");
    select_click(top);
    EXPECT_EQ(selected(), "tl12r34");
    select_click(top);
    EXPECT_EQ(selected(), "");
}

TEST_F(Selection, selecting_a_node_unselects_what_is_below_it) {
    for (Node *node : {r1, r2, l1}) node->select(true);
    select_click(right);
    EXPECT_EQ(selected(), "1r");
}

TEST_F(Selection, a_leaf_toggles) {
    select_click(l2);
    EXPECT_EQ(selected(), "2");
    select_click(l2);
    EXPECT_EQ(selected(), "");
}

TEST_F(Selection, under_a_selected_mother_an_unselected_node_selects_all_daughters) {
    top->select(true);
    select_click(right);
    EXPECT_EQ(selected(), "tl12r34");
}

TEST_F(Selection, under_a_selected_mother_a_subtree_shrinks_to_its_top_then_all_daughters_go) {
    for (int i = 0; i < 2; ++i) select_click(top);
    select_click(left);
    EXPECT_EQ(selected(), "tlr34");
    select_click(left);
    EXPECT_EQ(selected(), "t");
}

}  // namespace
}  // namespace brindle
