#include "prolog/subtrees.hpp"

#include <gtest/gtest.h>

#include "model/request.hpp"
#include "model/traversal.hpp"
#include "support/corpus.hpp"
#include "support/made_tree.hpp"
#include "support/recording_front_end.hpp"

namespace brindle {
namespace {

using test::Corpus;
using test::RecordingFrontEnd;

struct SubtreesTest : testing::Test {
    // The expansion of the node's formula; an error is shown as "path: message".
    std::string expand(std::string_view path = ".") {
        std::string out = ">";
        const auto error = expand_expr(out, corpus->at(path), &view);
        if (!error) return out.substr(1);
        EXPECT_EQ(out, ">");
        EXPECT_EQ(front_end.prompted_at, error->node);
        EXPECT_FALSE(front_end.silent);
        EXPECT_EQ(front_end.messages.back(), error->message);
        return front_end.log.back();
    }
    void read(std::string_view text, std::initializer_list<std::string_view> selected = {}) {
        corpus.emplace(text);
        for (const auto path : selected) corpus->at(path)->selected = true;
    }

    RecordingFrontEnd front_end;
    TreeView view;
    std::optional<Corpus> corpus;
};

constexpr const char *two_levels = "( (S|f(d1,d2) NP|a/x (VP|g(d1) V|v/y)) )";

TEST_F(SubtreesTest, the_selection_says_how_deep) {
    read(two_levels, {".", "1", "2"});
    EXPECT_EQ(expand(), "f(a,g(D1))");
    corpus->at("1")->selected = corpus->at("2")->selected = false;
    EXPECT_EQ(expand(), "f(D1,D2)");
    BATCH = true;
    EXPECT_EQ(expand(), "f(a,g(v))");
}

TEST_F(SubtreesTest, what_a_reference_is) {
    read("( (S|and2(d02)dog(x)Dd2d NP|a/x VP|b/y) )", {"2"});
    EXPECT_EQ(expand(), "anb(b)dog(x)Dbd");
    corpus->at("2")->selected = false;
    EXPECT_EQ(expand(), "anD2(D2)dog(x)DD2d");
}

TEST_F(SubtreesTest, errors_name_the_node_and_end_the_batch) {
    const std::pair<const char *, const char *> cases[] = {
        {"( (S|f(d3) NP|a/x VP|b/y) )", "prompt at .: \"d3\": non-existent daughter."},
        {"( (S|f(d1) NP|d1/x VP|b/y) )", "prompt at 1: \"d1\": non-existent daughter."},
        {"( (S|f(d0) NP|a/x VP|b/y) )", "prompt at .: 0 is not a daughter number"},
        {"( (S|f(d000) NP|a/x VP|b/y) )", "prompt at .: 0 is not a daughter number"},
        {"( (S|f(d2) NP|a/x VP/y) )", "prompt at 2: This node requires an annotation"},
        {"( (S|d99999999999999999999 NP|a/x) )",
         "prompt at .: \"d99999999999999999999\": non-existent daughter."},
    };
    for (const auto &[text, message] : cases) {
        corpus.reset();
        read(text);
        BATCH = true;
        EXPECT_EQ(expand(), message);
        EXPECT_FALSE(BATCH);
    }
}

TEST_F(SubtreesTest, a_reference_to_hidden_punctuation_shows_it) {
    read("( (S|f(d2) NP|a/x .|stop/.) )");
    EXPECT_EQ(expand(), "f(D2)");
    EXPECT_EQ(view.show_punctuation, 1);
    EXPECT_EQ(front_end.log, (std::vector<std::string>{"busy", "repaint", "idle"}));
    expand();
    EXPECT_EQ(front_end.log.size(), 3u);
}

TEST_F(SubtreesTest, expansions_become_tags) {
    read("*( (S|f(d1,d2) NP|a/x (VP|g(d1) V|v/y)) )", {".", "1", "2", "2.1"});
    EXPECT_FALSE(make_expansions(corpus->at("2.1"), &view));
    EXPECT_EQ(corpus->text(), "(S|f(a,g(v)) NP|a/x (VP|g(v) V|v/y))");
    EXPECT_EQ(corpus->at("1")->undo_sem, corpus->at("1")->sem);
    EXPECT_EQ(MODIFIED, 4);
    EXPECT_EQ(test::sem("f(a,g(v))")->checked_count, 1);
    EXPECT_EQ(front_end.log, std::vector<std::string>{"repaint"});
    EXPECT_FALSE(SWAP_FLAG);
}

TEST_F(SubtreesTest, nodes_expanded_before_an_error_keep_their_new_tags) {
    read("( (S|f(d1,d2) (NP|h(d1) N|a/x) VP/y) )");
    BATCH = true;
    EXPECT_TRUE(expand_into_tags(corpus->at("."), nullptr));
    EXPECT_EQ(corpus->text(), "(S|f(d1,d2) (NP|h(a) N|a/x) VP/y)");
}

TEST_F(SubtreesTest, an_expansion_that_is_no_tag_is_refused) {
    const std::string wide(600, 'x');
    read("( (S|d1d1 NP|" + wide + "/x) )", {".", "1"});
    const auto error = make_expansions(corpus->at("."), &view);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->node, corpus->at("."));
    EXPECT_EQ(corpus->at(".")->sem->view(), "d1d1");
}

TEST_F(SubtreesTest, doubling_formulas_are_refused) {
    std::string text = "x|t/w";
    for (int i = 0; i < 60; ++i) text = "(S|f(d1,d1) " + text + ")";
    read("( " + text + " )");
    BATCH = true;
    EXPECT_EQ(expand(), "prompt at .: Expansion too long");
}

TEST_F(SubtreesTest, a_deep_chain_of_references_expands) {
    constexpr int depth = 200000;
    const test::MadeTree tree(test::make_node("S", "-d1"));
    Node *node = tree.entry.root;
    for (int i = 1; i < depth; ++i) node = test::add_daughter(node, test::make_node("S", "-d1"));
    test::add_daughter(node, test::make_node("X", "t", "w"));
    BATCH = true;
    std::string out;
    EXPECT_FALSE(expand_expr(out, tree.entry.root, &view));
    EXPECT_EQ(out, std::string(depth, '-') + "t");
    BATCH = false;
}

TEST_F(SubtreesTest, the_expansion_shown_is_that_of_the_top_of_the_selection) {
    read(two_levels, {"2", "2.1"});
    EXPECT_EQ(top_of_selection(corpus->at("2.1")), corpus->at("2"));
    show_expansion(corpus->at("2.1"), &view);
    EXPECT_EQ(front_end.log, std::vector<std::string>{"prompt at 2: g(v).\n\n"});
    EXPECT_TRUE(front_end.silent);
    EXPECT_EQ(MODIFIED, 0);
}

TEST_F(SubtreesTest, lines_for_prolog) {
    EXPECT_EQ(evaluation_line(view, "f(a)"), "f(a)\n");
    EXPECT_EQ(filter_line(view, "f(a)"), "(f(a)).\n");
    set_pred(view, "");
    EXPECT_EQ(evaluation_line(view, "f(a)"), "f(a)\n");
    EXPECT_EQ(filter_line(view, "f(a)"), "f(a).\n");
    set_pred(view, "p");
    EXPECT_EQ(evaluation_line(view, "f(a)"), "p(f(a)).\n");
    EXPECT_EQ(filter_line(view, "f(a)"), "p(f(a)).\n");
}

TEST_F(SubtreesTest, the_predicates_footer) {
    EXPECT_EQ(set_pred(view, ""), "Evaluation predicate: none");
    EXPECT_TRUE(view.predicate_is_null);
    const std::string name(60, 'p');
    EXPECT_EQ(set_pred(view, name), "Evaluation predicate: " + std::string(41, 'p'));
    EXPECT_EQ(view.predicate, name);
    EXPECT_FALSE(view.predicate_is_null);
    EXPECT_EQ(set_pred(view, std::string(40, 'p') + "\xc3\xa9"),
              "Evaluation predicate: " + std::string(40, 'p'));
}

}  // namespace
}  // namespace brindle
