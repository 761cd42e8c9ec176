// The layout against the recursive definition of it, and the cases that a reader of the definition would ask
// about.
#include "display/layout.hpp"

#include <gtest/gtest.h>

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "model/path.hpp"
#include "model/punctuation.hpp"
#include "support/random_tree.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::TestCorpus;

struct Position {
    int x = 0, syn_x = 0, sem_x = 0, lex_x = 0;
    bool operator==(const Position &) const = default;
    friend std::ostream &operator<<(std::ostream &out, const Position &p) {
        return out << p.x << ' ' << p.syn_x << ' ' << p.sem_x << ' ' << p.lex_x;
    }
};

// How a tree is laid out; every byte of text is so many pixels wide.
struct Settings {
    int sisterdist;
    int mindist;
    int pixels;
    bool show_punctuation = false;
};

// The definition of the layout, word for word: recursive, with two numbers a level.
class Definition {
  public:
    explicit Definition(const Settings &settings) : s_(settings) {}

    void lay_out(Node *root, int vdist) {
        lo(root, 0);
        height = top_baseline - vdist;
        for (int level = 0; rightmost_[level] != 0; ++level) {
            width = std::max(width, rightmost_[level]);
            height = top_baseline + level * vdist;
        }
    }

    std::map<const Node *, Position> at;
    int width = 0, height = 0;

  private:
    int width_of(const Label *label) const { return static_cast<int>(label->size) * s_.pixels; }
    bool is_hidden(const Node *sister) const { return !s_.show_punctuation && punctuation(sister->syn()); }

    void lo(Node *node, int d) {
        const int lw = width_of(node->syn());
        const int sw = node->sem() ? width_of(node->sem()) : 0;
        const int half = std::max(lw, sw) / 2;
        Position &n = at[node];
        if (node->dtrs()) {
            lo(node->dtrs(), d + 1);
            const int first_x = at[node->dtrs()].x;
            const Node *last = node->dtrs();
            for (Node *s = node->dtrs()->sister(); s && !is_hidden(s); s = s->sister()) {
                lo(s, d + 1);
                last = s;
            }
            const int centre = first_x + (at[last].x - first_x) / 2;
            int left = centre - half;
            if (left < s_.mindist + rightmost_[d]) {
                addtodaughters(node->dtrs(), s_.mindist + rightmost_[d] - left, d + 1);
                left = s_.mindist + rightmost_[d];
            }
            n.x = left + half;
        } else {
            n.x = rightanchor_[d] + s_.sisterdist;
            if (n.x - half < s_.mindist + rightmost_[d]) n.x = s_.mindist + rightmost_[d] + half;
            if (node->lex()) place_word(node, n, d);
        }
        rightmost_[d] = n.x + half;
        rightanchor_[d] = n.x;
        n.syn_x = n.x - lw / 2;
        if (node->sem()) n.sem_x = n.x - sw / 2;
    }

    void place_word(const Node *node, Position &n, int d) {
        const int ww = width_of(node->lex());
        n.lex_x = n.x - ww / 2;
        if (n.lex_x < s_.mindist + rightmost_[d + 1]) {
            n.lex_x = s_.mindist + rightmost_[d + 1];
            n.x = n.lex_x + ww / 2;
        }
        rightanchor_[d + 1] = n.x;
        rightmost_[d + 1] = n.x + ww / 2;
    }

    // Hidden daughters are not laid out, so neither are they moved: the last laid-out sister decides.
    void addtodaughters(Node *node, int delta, int d) {
        Position &n = at[node];
        if (node->sister() && !is_hidden(node->sister())) {
            addtodaughters(node->sister(), delta, d);
        } else if (n.x == rightanchor_[d]) {
            rightmost_[d] += delta;
            rightanchor_[d] = n.x + delta;
            if (node->lex()) {
                rightmost_[d + 1] += delta;
                rightanchor_[d + 1] += delta;
            }
        }
        n.syn_x += delta;
        if (node->sem()) n.sem_x += delta;
        n.x += delta;
        if (node->dtrs())
            addtodaughters(node->dtrs(), delta, d + 1);
        else if (node->lex())
            n.lex_x += delta;
    }

    const Settings &s_;
    std::map<int, int> rightanchor_, rightmost_;
};

void expect_as_defined(Node *root, const Settings &settings) {
    LayoutParams params;
    params.sisterdist = settings.sisterdist;
    params.mindist = settings.mindist;
    Definition definition(settings);
    definition.lay_out(root, params.vdist);
    ByteMeasure measure(settings.pixels);
    const TreeLayout layout = lay_out(root, params, measure, settings.show_punctuation);
    ASSERT_EQ(layout.nodes.size(), definition.at.size());
    for (const PlacedNode &n : layout.nodes)
        ASSERT_EQ((Position{n.x, n.syn_x, n.sem_x, n.lex_x}), definition.at[n.node]);
    ASSERT_EQ(layout.width, definition.width);
    ASSERT_EQ(layout.height, definition.height);
}

// Makes so many trees and lays out each of them.
template <class MakeTree, class MakeSettings>
void try_trees(unsigned seed, int trees, MakeTree &&make_tree, MakeSettings &&make_settings) {
    std::mt19937 random(seed);
    std::string text;
    for (int t = 0; t < trees; ++t) text += "( " + make_tree(random) + " )\n";
    const TestCorpus corpus(text);
    for (int t = 0; t < trees; ++t) {
        SCOPED_TRACE(testing::Message() << "tree " << t << " of seed " << seed);
        expect_as_defined(corpus.tree(t).root, make_settings(random));
        if (testing::Test::HasFatalFailure()) return;
    }
}

// Small sizes make texts collide often, tight ones make them overlap and meet on the pixel.
void try_shape(unsigned seed, int trees, const test::RandomTreeShape &shape) {
    auto settings = [i = 0](std::mt19937 &random) mutable {
        const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
        const bool tight = ++i % 2;
        return Settings{below(tight ? 4 : 80), below(tight ? 2 : 20), 1 + below(9), i / 2 % 2 == 1};
    };
    try_trees(
        seed, trees, [&](std::mt19937 &random) { return test::random_tree(random, shape); }, settings);
}

TEST(layout, thousands_of_random_trees_stand_where_the_definition_puts_them) {
    try_shape(1, 3000, {});
    try_shape(2, 3000, {.max_nodes = 12, .max_daughters = 2, .word_percent = 50});
    try_shape(3, 2000, {.max_nodes = 60, .tag_percent = 20, .longest_label = 60});
    try_shape(4, 2000, {.max_nodes = 60, .punctuation_percent = 40, .word_percent = 30});
    try_shape(5, 300, {.max_nodes = 400, .max_daughters = 3, .spine_percent = 60});
    try_shape(6, 300, {.max_nodes = 400, .max_daughters = 3, .longest_label = 50, .spine_percent = 85});
}

// Deep narrow trees: spines side by side, with leaves on both sides of each, and some with spines of their
// own. Each spine pushes the next one by a few pixels on many levels. So words are left behind, nodes that
// move on meet them on the very pixel, and texts get out of order: all that is rare elsewhere.
class Spines {
  public:
    explicit Spines(std::mt19937 &random)
        : random_(random),
          longest_label_(1 + below(4)),
          longest_tag_(1 + below(8)),
          word_percent_(30 + below(60)),
          branch_percent_(below(2) * 10) {}

    std::string tree() {
        std::string out = "(R";
        for (int spines = 2 + below(3); spines > 0; --spines) out += spine(32);
        return out + ")";
    }

  private:
    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    std::string label(int longest) { return std::string(static_cast<std::size_t>(1 + below(longest)), 'a'); }

    std::string leaf() {
        const bool word = below(100) < word_percent_;
        return " (" + label(longest_label_) + (word ? "/" + label(longest_label_) : "") + ")";
    }

    std::string spine(int longest) {
        std::string down, up;
        for (int nodes = 1 + below(longest); nodes > 0; --nodes) {
            down += " (" + label(longest_label_) + (below(2) ? "|" + label(longest_tag_) : "");
            if (nodes > 1 && below(3) == 0) down += leaf();
            std::string after = nodes == 1 ? leaf() : "";
            for (int leaves = below(3); leaves > 0; --leaves)
                after += longest > 4 && below(100) < branch_percent_ ? spine(longest / 4) : leaf();
            up = after + ")" + up;
        }
        return down + up;
    }

    std::mt19937 &random_;
    int longest_label_;
    int longest_tag_;
    int word_percent_;
    int branch_percent_;
};

TEST(layout, deep_narrow_trees_stand_where_the_definition_puts_them) {
    const auto tree = [](std::mt19937 &random) { return Spines(random).tree(); };
    const auto settings = [](std::mt19937 &random) {
        const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
        return Settings{below(2), below(2), 1 + below(2)};
    };
    for (unsigned seed = 0; seed < 8; ++seed) try_trees(seed, 1000, tree, settings);
}

// What hardly any random tree shows.
TEST(layout, the_rarest_meetings_are_as_defined) {
    const struct {
        const char *why;
        Settings settings;
        const char *tree;
    } cases[] = {
        {"a terminal meets a word left behind, and its own word moves the level below",
         {0, 0, 1},
         "(R (a (a)) (a (a|aaaa (a|aa (a (a/a)) (a) (a/a)) (a/a) (a/a))))"},
        {"a word moves its level's end past a list that ends to the right of it",
         {0, 0, 1},
         "(R (a (a|aa (a) (a (a (a (a) (a|aaaa))) (a/a)) (a/a) (a))) (a (a (a (a/a)))))"},
        {"on the level of such a word a list is met, too",
         {0, 0, 1},
         "(R (a (a (a|aaaa (a (a (a|aa (a (a/a)) (a/a) (a))))))) (a (a (a (a (a (a (a (a) (a "
         "(a|aa))))))))))"},
        {"a list that ends left of others is met when those have passed",
         {0, 1, 1},
         "(R (a) (a) (a) (a) (a (a) (a (a|aaaaaa))) (a (a (a|aaaaaa (a)) (a) (a)) (a/a) (a|aa)) (a (a (a (a "
         "(a (a (a) (a|aaaaaaaa (a (a/a))) (a) (a)) (a (a) (a|aa (a (a (a))) (a/a)) (a/a))) (a)) (a/a)))))"},
        {"a text comes left of a list, and both are met in one move",
         {1, 1, 2},
         "(R (a) (a) (aaa) (aaa) (aaaa) (aaaa) (a (a (a (a (a) (a (aaa) (a (a (a) (a (a (a (a (a) (a ("
         "a (a (a (a) (a (a (a (a (a (a (a (a (a (a (a (a (a (a (a)) (a/aaaa)) (a/a)) (aa/aaaa) (aaaa)"
         " (aaaa/aaaa) (a))))))))))))))))))))))))))) (a (a (a (a (a (a (a (a (a (a (a (a (a (a (a (a ("
         "a (a (a (a (a (a (a (a (a (a (a (aaa (a (aaaa) (a|aaaa (aaaa)) (a/aaaa)) (a/aaaa) (a)) (a/a)"
         " (a)) (a (a (a) (a/a))))))))))))))))))))))))))))))"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const TestCorpus corpus("( " + std::string(c.tree) + " )");
        expect_as_defined(corpus.tree(0).root, c.settings);
    }
}

// A chain, and combs whose leaves are to the left, to the right, on both sides.
TEST(layout, deep_trees_cost_no_more_a_node_than_flat_ones) {
    constexpr int depth = 100000;
    const auto deep = [](std::string_view down, std::string_view up) {
        std::string text;
        for (int i = 0; i < depth; ++i) text += down;
        text += "(S/x)";
        for (int i = 0; i < depth; ++i) text += up;
        return "( " + text + " )\n";
    };
    const TestCorpus corpus(deep("(S (A) ", ")") + deep("(S ", ")") + deep("(S ", "(A/a) (B))") +
                            deep("(S|longtag (A/a)", "(A/word) (B))"));
    ByteMeasure measure(8);
    for (int t = 0; t < corpus.amount(); ++t) {
        const TreeLayout layout = lay_out(corpus.tree(t).root, LayoutParams(), measure, false);
        EXPECT_EQ(layout.height, top_baseline + (depth + 1) * 71);
        if (t > 0) continue;
        // From the bottom up every mother stands halfway between her daughters, then makes room for herself.
        EXPECT_EQ(layout.nodes[1].x, 74);
        EXPECT_GT(layout.nodes.back().x, depth);
    }
}

// Every byte of text is 8 pixels wide.
struct LaidOut {
    explicit LaidOut(std::string_view bracketing, bool show = false)
        : corpus("( " + std::string(bracketing) + " )") {
        ByteMeasure measure(8);
        layout = lay_out(corpus.tree(0).root, LayoutParams(), measure, show);
    }
    const PlacedNode *find(std::string_view path) const { return layout.find(corpus.at(path)); }
    int x(std::string_view path) const { return find(path)->x; }

    TestCorpus corpus;
    TreeLayout layout;
};

TEST(layout, a_single_terminal) {
    const LaidOut l("(NP/john)");
    EXPECT_EQ(l.x("."), 74);
    EXPECT_EQ(l.layout.height, 25 + 71);
    EXPECT_EQ(l.layout.width, 74 + 16);
    EXPECT_EQ(l.find(".")->lex_x, 74 - 16);
    const LaidOut wide("(AVERYLONGCATEGORYNAME/x)");  // 21 bytes, 168 pixels
    EXPECT_EQ(wide.x("."), 16 + 84);
}

TEST(layout, a_final_stop_counts_only_when_it_is_shown) {
    const LaidOut hidden("(S (A/a)(B/b)(./.))");
    EXPECT_EQ(hidden.x("."), hidden.x("1") + (hidden.x("2") - hidden.x("1")) / 2);
    EXPECT_EQ(hidden.find("3"), nullptr);
    const LaidOut shown("(S (A/a)(B/b)(./.))", true);
    EXPECT_EQ(shown.x("."), shown.x("1") + (shown.x("3") - shown.x("1")) / 2);
    const LaidOut middle("(S (A/a)(./.)(B/b))");
    EXPECT_EQ(middle.x("."), middle.x("1"));
    EXPECT_EQ(middle.find("3"), nullptr);
    const LaidOut first("(S (./.)(B/b))");
    EXPECT_EQ(first.x("."), first.x("1") + (first.x("2") - first.x("1")) / 2);
}

TEST(layout, a_wide_mother_moves_her_daughters_by_what_is_missing) {
    const LaidOut l("(S (A)(AVERYLONGCATEGORYNAME (B/b)(C/c)))");
    EXPECT_EQ(l.find("2")->syn_x, l.x("1") + 4 + 16);
    EXPECT_EQ(l.x("2"), l.x("2.1") + (l.x("2.2") - l.x("2.1")) / 2);
}

TEST(layout, wide_words_keep_their_distance_and_drag_their_terminals) {
    const LaidOut l("(S (A/aaaaaaaaaaaaaaaaaaaa)(B/bbbbbbbbbbbbbbbbbbbb))");
    EXPECT_EQ(l.find("2")->lex_x, l.find("1")->lex_x + 160 + 16);
    EXPECT_EQ(l.x("2"), l.find("2")->lex_x + 80);
}

// Depth, mother and what comes past each subtree.
TEST(layout, its_nodes_are_those_shown_in_document_order) {
    constexpr std::string_view tree = "(S (A (B/b)(!/!)(C/c))(D/d)(?/?)(E (F/f)))";
    const LaidOut l(tree);
    std::string shown;
    for (const PlacedNode &n : l.layout.nodes)
        shown += fmt::format("{}: {} {} {}; ", path_of(n.node), n.depth, n.mother, n.next);
    EXPECT_EQ(shown, ".: 0 -1 4; 1: 1 0 3; 1.1: 2 1 3; 2: 1 0 4; ");
    EXPECT_EQ(LaidOut(tree, true).layout.nodes.size(), 9u);
}

// Every node whose texts or branch cross the clip is drawn, and hardly any other.
TEST(layout, drawing_passes_over_what_is_out_of_view) {
    constexpr int h = 10;
    std::mt19937 random(7);
    LayoutParams params;
    ByteMeasure measure(8);
    for (int round = 0; round < 200; ++round) {
        const auto tree =
            test::random_tree(random, {.max_nodes = 300, .max_daughters = 6, .spine_percent = 30});
        const TestCorpus corpus("( " + tree + " )");
        const TreeLayout layout = lay_out(corpus.tree(0).root, params, measure, false);
        const int left = static_cast<int>(random() % 2000), top = static_cast<int>(random() % 1000);
        const Clip clip{left, top, left + 200, top + 100};
        std::vector<const PlacedNode *> drawn;
        layout.for_each_in(clip, h, params, [&](const PlacedNode &n) { drawn.push_back(&n); });
        std::size_t at = 0;
        for (const PlacedNode &n : layout.nodes) {
            const bool is_drawn = at < drawn.size() && drawn[at] == &n;
            at += is_drawn;
            const int text_left = std::min(n.syn_x, n.node->sem() ? n.sem_x : n.syn_x);
            const int base = get_node_y(n, params);
            const bool in_view = text_left <= clip.right && 2 * n.x - text_left >= clip.left &&
                                 base - h <= clip.bottom && base + 2 * h >= clip.top;
            EXPECT_TRUE(is_drawn || !in_view) << path_of(n.node);
            const bool far = base + 3 * 71 < clip.top || base - 3 * 71 > clip.bottom;
            EXPECT_FALSE(is_drawn && far) << path_of(n.node);
        }
        EXPECT_EQ(at, drawn.size());
    }
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
