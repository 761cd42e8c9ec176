// The layout against the recursive definition of it, and the cases that a reader of the definition would ask
// about. Every byte of text is 8 pixels wide.
#include "display/layout.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>

#include "model/path.hpp"
#include "model/punctuation.hpp"
#include "support/made_tree.hpp"

namespace brindle {
namespace {

using test::MadeTree;

// The definition of the layout, word for word: recursive, with two numbers a level.
class Definition {
  public:
    Definition(const LayoutParams &p, int show, int pixels) : p_(p), show_(show), pixels_(pixels) {}

    void lay_out(TreeEntry &tree) {
        lo(tree.root, 0);
        tree.width = 0;
        tree.height = top_baseline - p_.vdist;
        for (int level = 0; rightmost_[level] != 0; ++level) {
            tree.width = std::max(tree.width, rightmost_[level]);
            tree.height = top_baseline + level * p_.vdist;
        }
    }

  private:
    int width(const Label *label) const { return static_cast<int>(label->size) * pixels_; }

    void lo(Node *node, int d) {
        const int lw = width(node->syn);
        const int sw = node->sem ? width(node->sem) : 0;
        const int half = std::max(lw, sw) / 2;
        if (node->dtrs) {
            lo(node->dtrs, d + 1);
            const int first_x = node->dtrs->x;
            const Node *last = node->dtrs;
            for (Node *s = node->dtrs->sister; s; s = s->sister) {
                if (!show_ && punctuation(s->syn)) break;
                lo(s, d + 1);
                last = s;
            }
            const int centre = first_x + (last->x - first_x) / 2;
            int left = centre - half;
            if (left < p_.mindist + rightmost_[d]) {
                addtodaughters(node->dtrs, p_.mindist + rightmost_[d] - left, d + 1);
                left = p_.mindist + rightmost_[d];
            }
            node->x = left + half;
        } else {
            node->x = rightanchor_[d] + p_.sisterdist;
            if (node->x - half < p_.mindist + rightmost_[d]) node->x = p_.mindist + rightmost_[d] + half;
            if (node->lex) place_word(node, d);
        }
        rightmost_[d] = node->x + half;
        rightanchor_[d] = node->x;
        node->syn_x = node->x - lw / 2;
        if (node->sem) node->sem_x = node->x - sw / 2;
    }

    void place_word(Node *node, int d) {
        const int ww = width(node->lex);
        node->lex_x = node->x - ww / 2;
        if (node->lex_x < p_.mindist + rightmost_[d + 1]) {
            node->lex_x = p_.mindist + rightmost_[d + 1];
            node->x = node->lex_x + ww / 2;
        }
        rightanchor_[d + 1] = node->x;
        rightmost_[d + 1] = node->x + ww / 2;
    }

    // Hidden daughters are not laid out, so neither are they moved: the last laid-out sister decides.
    void addtodaughters(Node *n, int delta, int d) {
        if (n->sister && (show_ || !punctuation(n->sister->syn))) {
            addtodaughters(n->sister, delta, d);
        } else if (n->x == rightanchor_[d]) {
            rightmost_[d] += delta;
            rightanchor_[d] = n->x + delta;
            if (n->lex) {
                rightmost_[d + 1] += delta;
                rightanchor_[d + 1] += delta;
            }
        }
        n->syn_x += delta;
        if (n->sem) n->sem_x += delta;
        n->x += delta;
        if (n->dtrs)
            addtodaughters(n->dtrs, delta, d + 1);
        else if (n->lex)
            n->lex_x += delta;
    }

    const LayoutParams &p_;
    int show_;
    int pixels_;
    std::map<int, int> rightanchor_, rightmost_;
};

struct Position {
    int x, syn_x, sem_x, lex_x;
    bool operator==(const Position &) const = default;
    friend std::ostream &operator<<(std::ostream &out, const Position &p) {
        return out << p.x << ' ' << p.syn_x << ' ' << p.sem_x << ' ' << p.lex_x;
    }
};

std::vector<Position> positions(const TreeEntry &tree, bool show) {
    std::vector<Position> all;
    for (Node *n = tree.root; n; n = next_shown(n, tree.root, show))
        all.push_back({n->x, n->syn_x, n->sem ? n->sem_x : 0, n->lex ? n->lex_x : 0});
    return all;
}

void expect_as_defined(Node *root, const LayoutParams &params, int show, int pixels) {
    MadeTree tree(root);
    Definition(params, show, pixels).lay_out(tree.entry);
    const auto wanted = positions(tree.entry, show != 0);
    const auto [width, height] = std::pair(tree.entry.width, tree.entry.height);
    TreeView view;
    view.show_punctuation = show;
    ByteMeasure measure(pixels);
    tree_layout(view, params, measure, tree.entry);
    ASSERT_EQ(positions(tree.entry, show != 0), wanted);
    ASSERT_EQ(tree.entry.width, width);
    ASSERT_EQ(tree.entry.height, height);
}

// Sizes small enough to collide often; tight ones make texts overlap and meet on the pixel.
LayoutParams random_params(std::mt19937 &random, bool tight) {
    LayoutParams params;
    params.sisterdist = static_cast<int>(random() % (tight ? 4 : 80));
    params.mindist = static_cast<int>(random() % (tight ? 2 : 20));
    params.vdist = 40;
    return params;
}

void try_shapes(unsigned seed, int trees, const test::RandomTreeShape &shape) {
    std::mt19937 random(seed);
    for (int i = 0; i < trees; ++i) {
        const LayoutParams params = i % 3 ? random_params(random, i % 3 == 2) : LayoutParams();
        const int pixels = 1 + static_cast<int>(random() % 9);
        SCOPED_TRACE(testing::Message() << "tree " << i << " of seed " << seed);
        expect_as_defined(test::random_tree(random, shape), params, i / 2 % 2, pixels);
        if (testing::Test::HasFatalFailure()) return;
    }
}

TEST(layout, thousands_of_random_trees_stand_where_the_definition_puts_them) {
    try_shapes(1, 4000, {});
    try_shapes(2, 4000, {.max_nodes = 12, .max_daughters = 2, .word_percent = 50});
    try_shapes(3, 2000, {.max_nodes = 60, .tag_percent = 20, .longest_label = 60});
    try_shapes(4, 2000, {.max_nodes = 60, .punctuation_percent = 40, .word_percent = 30});
}

TEST(layout, deep_random_trees_stand_where_the_definition_puts_them) {
    try_shapes(5, 300, {.max_nodes = 400, .max_daughters = 3, .spine_percent = 60});
    try_shapes(6, 300, {.max_nodes = 400, .max_daughters = 3, .longest_label = 50, .spine_percent = 85});
}

// Narrow texts below wide mothers, hardly any distances.
void try_narrow_tree(unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
    test::RandomTreeShape shape;
    shape.max_nodes = 10 + below(40);
    shape.max_daughters = 2 + below(2);
    shape.punctuation_percent = below(3);
    shape.tag_percent = below(50);
    shape.word_percent = 50 + below(51);
    shape.longest_label = 1 + below(3);
    shape.spine_percent = below(70);
    shape.longest_mother_tag = below(24);
    LayoutParams params;
    params.sisterdist = below(3);
    params.mindist = below(2);
    SCOPED_TRACE(seed);
    Node *tree = test::random_tree(random, shape);
    expect_as_defined(tree, params, 0, 1 + below(2));
}

// A word left behind by a move can be met, on the very pixel, by a node that moves on. That is rare: these
// seeds make trees where it decides where later nodes stand.
TEST(layout, nodes_that_meet_words_left_behind_stand_where_the_definition_puts_them) {
    for (const unsigned seed : {43560u, 49451u, 86379u, 146743u, 163877u, 193922u, 283426u, 344775u, 402278u})
        try_narrow_tree(seed);
    for (unsigned seed = 0; seed < 3000; ++seed) try_narrow_tree(seed);
}

// Every mother moves all below her: a walk over them each time would take minutes.
TEST(layout, deep_trees_cost_no_more_a_node_than_flat_ones) {
    test::MadeTree tree(test::make_node("S"));
    Node *node = tree.entry.root;
    for (int i = 0; i < 100000; ++i) {
        test::add_daughter(node, test::make_node("A"));
        node = test::add_daughter(node, test::make_node("S"));
    }
    ByteMeasure measure(8);
    const TreeView view;
    tree_layout(view, LayoutParams(), measure, tree.entry);
    EXPECT_EQ(tree.entry.height, top_baseline + 100000 * 71);
    // From the bottom up every mother stands halfway between her daughters, then makes room for herself.
    EXPECT_EQ(tree.at("1")->x, 74);
    EXPECT_GT(node->x, 100000);
    forget_layout_owner(&view);
}

struct LaidOut {
    explicit LaidOut(std::string_view bracketing, int show = 0) : tree(bracketing) {
        view.show_punctuation = show;
        tree_layout(view, params, measure, tree.entry);
    }
    ~LaidOut() { forget_layout_owner(&view); }
    int x(std::string_view path) const { return tree.at(path)->x; }

    LayoutParams params;
    TreeView view;
    ByteMeasure measure{8};
    MadeTree tree;
};

TEST(layout, a_single_terminal) {
    const LaidOut l("(NP/john)");
    EXPECT_EQ(l.x("."), 74);
    EXPECT_EQ(l.tree.entry.height, 25 + 71);
    EXPECT_EQ(l.tree.entry.width, 74 + 16);
    EXPECT_EQ(l.tree.at(".")->lex_x, 74 - 16);
    const LaidOut wide("(AVERYLONGCATEGORYNAME/x)");  // 21 bytes, 168 pixels
    EXPECT_EQ(wide.x("."), 16 + 84);
}

TEST(layout, a_final_stop_counts_only_when_it_is_shown) {
    const LaidOut hidden("(S (A/a)(B/b)(./.))");
    EXPECT_EQ(hidden.x("."), hidden.x("1") + (hidden.x("2") - hidden.x("1")) / 2);
    const LaidOut shown("(S (A/a)(B/b)(./.))", 1);
    EXPECT_EQ(shown.x("."), shown.x("1") + (shown.x("3") - shown.x("1")) / 2);
    const LaidOut middle("(S (A/a)(./.)(B/b))");
    EXPECT_EQ(middle.x("."), middle.x("1"));
    EXPECT_EQ(middle.x("3"), 0);
    const LaidOut first("(S (./.)(B/b))");
    EXPECT_EQ(first.x("."), first.x("1") + (first.x("2") - first.x("1")) / 2);
}

TEST(layout, a_wide_mother_moves_her_daughters_by_what_is_missing) {
    const LaidOut l("(S (A)(AVERYLONGCATEGORYNAME (B/b)(C/c)))");
    const Node *mother = l.tree.at("2");
    EXPECT_EQ(mother->syn_x, l.x("1") + 4 + 16);
    EXPECT_EQ(mother->x, l.x("2.1") + (l.x("2.2") - l.x("2.1")) / 2);
}

TEST(layout, wide_words_keep_their_distance_and_drag_their_terminals) {
    const LaidOut l("(S (A/aaaaaaaaaaaaaaaaaaaa)(B/bbbbbbbbbbbbbbbbbbbb))");
    EXPECT_EQ(l.tree.at("2")->lex_x, l.tree.at("1")->lex_x + 160 + 16);
    EXPECT_EQ(l.x("2"), l.tree.at("2")->lex_x + 80);
}

TEST(layout, the_last_view_laid_out_owns_the_positions) {
    LaidOut a("(S/x)");
    EXPECT_EQ(layout_owner, &a.view);
    {
        LaidOut b("(S/x)");
        EXPECT_EQ(layout_owner, &b.view);
        forget_layout_owner(&a.view);
        EXPECT_EQ(layout_owner, &b.view);
    }
    EXPECT_EQ(layout_owner, nullptr);
}

TEST(layout, sizes_of_the_four_font_scales) {
    LayoutParams p;
    EXPECT_EQ(size_sliders(p), (SizeSliders{38, 74, 16, 2}));
    apply_size_sliders(p, {38, 74, 16, 2});
    EXPECT_EQ(p.vdist, 71);
    choose_font_scale(p, 0);
    EXPECT_EQ(p.text_gap, 1);
    apply_size_sliders(p, {1, 2, 3, 1});
    choose_font_scale(p, 3);
    EXPECT_EQ(std::tuple(p.vdist, p.sisterdist, p.mindist, p.line_width, p.text_gap),
              std::tuple(88, 76, 20, 2, 2));
    EXPECT_EQ(default_size_sliders(3), (SizeSliders{43, 76, 20, 3}));
    choose_font_scale(p, 0);
    EXPECT_EQ(std::tuple(p.vdist, p.sisterdist, p.mindist, p.line_width), std::tuple(24, 2, 3, 0));
}

}  // namespace
}  // namespace brindle
