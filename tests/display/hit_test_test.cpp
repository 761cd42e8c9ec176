// Points of the canvas and what lies there. Text is 8 pixels a byte and 10 high; levels are 71 apart.
#include "display/hit_test.hpp"

#include <gtest/gtest.h>

#include <optional>

#include "model/path.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

constexpr int h = 10;

struct HitTest : testing::Test {
    void show(std::string_view bracketing, bool punctuation = false) {
        corpus.emplace("( " + std::string(bracketing) + " )");
        lay_it_out(punctuation);
    }
    void lay_it_out(bool punctuation) {
        ByteMeasure measure(8);
        layout = lay_out(corpus->tree(0).root, params, measure, punctuation);
    }
    // What is hit: "path mode".
    std::string hit(int x, int y) const {
        const Hit found = find(layout, x, y, h, params);
        if (!found.node) return "-";
        return path_of(found.node) + " " + std::to_string(static_cast<int>(found.mode));
    }
    const PlacedNode &at(std::string_view path) const { return *layout.find(corpus->at(path)); }
    int x(std::string_view path) const { return at(path).x; }
    static int y(int level) { return 25 + 71 * level; }

    LayoutParams params;
    std::optional<test::TestCorpus> corpus;
    TreeLayout layout;
};

TEST_F(HitTest, the_lines_of_a_node) {
    show("(S|f(d1,d2) (NP/john)(VP|w/walks))");
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
    show("(S (NP/john))");
    EXPECT_EQ(hit(x("."), y(0) - h - 5), ". 4");
    EXPECT_EQ(hit(x("."), 0), ". 4");
}

TEST_F(HitTest, a_node_is_as_wide_as_the_wider_of_its_texts) {
    show("(S|f(d1,d2) (NP/john))");
    const int left = at(".").sem_x;
    EXPECT_EQ(hit(left, y(0)), ". 4");
    EXPECT_EQ(hit(left - 1, y(0)), "-");
    const int right = 2 * x(".") - left;
    EXPECT_EQ(hit(right, y(0) + 1), ". 2");
    EXPECT_EQ(hit(right + 1, y(0) + 1), "-");
}

TEST_F(HitTest, a_category_on_the_level_of_a_word_comes_first) {
    show("(S (A/aaaaaaaaaaaaaaaa)(B (C/c)))");
    EXPECT_EQ(hit(x("1"), y(2)), "1 3");
    EXPECT_EQ(hit(x("2.1"), y(2)), "2.1 5");
    // Now it spans the word as well.
    layout.nodes[static_cast<std::size_t>(layout.find(corpus->at("2.1")) - layout.nodes.data())].syn_x =
        at("1").lex_x;
    EXPECT_EQ(hit(x("1"), y(2)), "2.1 5");
}

TEST_F(HitTest, hidden_nodes_are_never_hit) {
    show("(S (A/a)(./.)(B/b))", true);
    const int stop = x("2"), after = x("3");
    EXPECT_EQ(hit(stop, y(1)), "2 5");
    lay_it_out(false);
    EXPECT_EQ(hit(stop, y(1)), "-");
    EXPECT_EQ(hit(after, y(2)), "-");
}

}  // namespace
}  // namespace brindle
