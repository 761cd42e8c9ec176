// What clicks select, for every state of a node, its mother and its first daughter.
#include "display/selection.hpp"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

// A tree of seven nodes: top with the daughters left and right, each of which has two daughters.
struct Tree {
    Node top, left, right, l1, l2, r1, r2;

    Tree() {
        link(top, left, right);
        link(left, l1, l2);
        link(right, r1, r2);
    }

    static void link(Node &mother, Node &first, Node &second) {
        mother.dtrs = &first;
        first.sister = &second;
        first.mother = second.mother = &mother;
    }

    // The selected nodes, one letter each, in document order: t l 1 2 r 3 4.
    std::string selected() const {
        std::string out;
        const Node *nodes[] = {&top, &left, &l1, &l2, &right, &r1, &r2};
        for (int i = 0; i < 7; ++i)
            if (nodes[i]->selected) out += "tl12r34"[i];
        return out;
    }
};

TEST(selection, clicks_on_a_node_below_an_unselected_mother_cycle) {
    Tree t;
    select_click(&t.left);
    EXPECT_EQ(t.selected(), "l");
    select_click(&t.left);
    EXPECT_EQ(t.selected(), "l12");
    select_click(&t.left);
    EXPECT_EQ(t.selected(), "");
}

TEST(selection, a_root_counts_as_below_an_unselected_mother) {
    Tree t;
    select_click(&t.top);
    EXPECT_EQ(t.selected(), "t");
    select_click(&t.top);
    EXPECT_EQ(t.selected(), "tl12r34");
    select_click(&t.top);
    EXPECT_EQ(t.selected(), "");
}

TEST(selection, selecting_a_node_unselects_what_is_below_it) {
    Tree t;
    t.r1.selected = t.r2.selected = t.l1.selected = true;
    select_click(&t.right);
    EXPECT_EQ(t.selected(), "1r");
}

TEST(selection, a_leaf_toggles) {
    Tree t;
    select_click(&t.l2);
    EXPECT_EQ(t.selected(), "2");
    select_click(&t.l2);
    EXPECT_EQ(t.selected(), "");
}

TEST(selection, under_a_selected_mother_an_unselected_node_selects_all_daughters) {
    Tree t;
    t.top.selected = true;
    select_click(&t.right);
    EXPECT_EQ(t.selected(), "tl12r34");
}

TEST(selection, under_a_selected_mother_a_subtree_shrinks_to_its_top_then_all_daughters_go) {
    Tree t;
    for (int i = 0; i < 2; ++i) select_click(&t.top);
    select_click(&t.left);
    EXPECT_EQ(t.selected(), "tlr34");
    select_click(&t.left);
    EXPECT_EQ(t.selected(), "t");
}

}  // namespace
}  // namespace brindle
