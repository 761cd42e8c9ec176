// Points of the canvas and what lies there. Text is 8 pixels a byte and 10 high; levels are 71 apart.
#include "display/hit_test.hpp"

#include <gtest/gtest.h>

#include "display/layout.hpp"
#include "model/path.hpp"
#include "support/random_tree.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

constexpr int h = 10;

struct HitTest : testing::Test {
    void lay_out(std::string_view bracketing, bool show = false) {
        corpus.emplace("( " + std::string(bracketing) + " )");
        layout = brindle::lay_out(corpus->tree(0).root, params, measure, show);
    }
    // What is hit at the node's centre (moved by dx) on a baseline (moved by dy): "path mode".
    std::string hit(int x, int y) const {
        const Hit found = find(layout, x, y, h, params);
        if (!found.node) return "-";
        return path_of(found.node) + " " + std::to_string(static_cast<int>(found.mode));
    }
    const PlacedNode &at(std::string_view path) const { return *layout.find(corpus->at(path)); }
    int x(std::string_view path) const { return at(path).x; }
    static int y(int level) { return 25 + 71 * level; }

    LayoutParams params;
    ByteMeasure measure{8};
    std::optional<test::TestCorpus> corpus;
    TreeLayout layout;
};

TEST_F(HitTest, the_lines_of_a_node) {
    lay_out("(S|f(d1,d2) (NP/john)(VP|w/walks))");
    EXPECT_EQ(hit(x("."), y(0)), ". 4");
    EXPECT_EQ(hit(x("."), y(0) - h), ". 4");
    EXPECT_EQ(hit(x("."), y(0) + 1), ". 2");
    EXPECT_EQ(hit(x("."), y(0) + h + 2), ". 2");
    EXPECT_EQ(hit(x("."), y(0) + h + 3), "-");
    EXPECT_EQ(hit(x("1"), y(1)), "1 5");
    EXPECT_EQ(hit(x("1"), y(1) + 1), "1 2");
    EXPECT_EQ(hit(x("1"), y(2)), "1 3");
    EXPECT_EQ(hit(x("1"), y(2) + 1), "-");
    EXPECT_EQ(hit(x("2"), y(2)), "2 3");
    EXPECT_EQ(hit(x("1"), y(3)), "-");
}

TEST_F(HitTest, above_the_root_is_its_category_line) {
    lay_out("(S (NP/john))");
    EXPECT_EQ(hit(x("."), y(0) - h - 5), ". 4");
    EXPECT_EQ(hit(x("."), 0), ". 4");
}

TEST_F(HitTest, a_node_is_as_wide_as_the_wider_of_its_texts) {
    lay_out("(S|f(d1,d2) (NP/john))");
    const int left = at(".").sem_x;
    EXPECT_EQ(hit(left, y(0)), ". 4");
    EXPECT_EQ(hit(left - 1, y(0)), "-");
    const int right = 2 * x(".") - left;
    EXPECT_EQ(hit(right, y(0) + 1), ". 2");
    EXPECT_EQ(hit(right + 1, y(0) + 1), "-");
}

TEST_F(HitTest, a_category_on_the_level_of_a_word_comes_first) {
    lay_out("(S (A/aaaaaaaaaaaaaaaa)(B (C/c)))");
    EXPECT_EQ(hit(x("1"), y(2)), "1 3");
    EXPECT_EQ(hit(x("2.1"), y(2)), "2.1 5");
    for (PlacedNode &n : layout.nodes)
        if (n.node == corpus->at("2.1")) n.syn_x = at("1").lex_x;  // now it spans the word as well
    EXPECT_EQ(hit(x("1"), y(2)), "2.1 5");
}

TEST_F(HitTest, hidden_nodes_are_never_hit) {
    lay_out("(S (A/a)(./.)(B/b))", true);
    const int stop = x("2"), after = x("3");
    EXPECT_EQ(hit(stop, y(1)), "2 5");
    layout = brindle::lay_out(corpus->tree(0).root, params, measure, false);
    EXPECT_EQ(hit(stop, y(1)), "-");
    EXPECT_EQ(hit(after, y(2)), "-");
}

// Every node whose texts or branch cross the clip is drawn, and hardly any other.
TEST_F(HitTest, drawing_passes_over_what_is_out_of_view) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        lay_out(test::random_tree(random, {.max_nodes = 300, .max_daughters = 6, .spine_percent = 30}));
        const int left = static_cast<int>(random() % 2000), top = static_cast<int>(random() % 1000);
        const Clip clip{left, top, left + 200, top + 100};
        std::vector<const Node *> drawn;
        layout.for_each_in(clip, h, params, [&](const PlacedNode &n) { drawn.push_back(n.node); });
        std::size_t at = 0;
        for (const PlacedNode &n : layout.nodes) {
            const bool is_drawn = at < drawn.size() && drawn[at] == n.node;
            at += is_drawn;
            const int text_left = std::min(n.syn_x, n.node->sem() ? n.sem_x : n.syn_x);
            const int base = y(n.depth);
            const bool in_view = text_left <= clip.right && 2 * n.x - text_left >= clip.left &&
                                 base - h <= clip.bottom && base + 2 * h >= clip.top;
            EXPECT_TRUE(is_drawn || !in_view) << path_of(n.node);
            EXPECT_EQ(n.depth, depth_of(n.node));
            const bool far = base + 3 * 71 < clip.top || base - 3 * 71 > clip.bottom;
            EXPECT_FALSE(is_drawn && far) << path_of(n.node);
        }
        EXPECT_EQ(at, drawn.size());
    }
}

TEST_F(HitTest, what_is_shown_is_what_is_laid_out) {
    lay_out("(S (A (B/b)(!/!)(C/c))(D/d)(?/?)(E (F/f)))");
    std::string shown;
    for (const PlacedNode &n : layout.nodes) shown += path_of(n.node) + " ";
    EXPECT_EQ(shown, ". 1 1.1 2 ");
    EXPECT_EQ(layout.nodes[1].next, 3);
    EXPECT_EQ(brindle::lay_out(corpus->tree(0).root, params, measure, true).nodes.size(), 9u);
}

}  // namespace
}  // namespace brindle
