#include "prolog/expansion.hpp"

#include <gtest/gtest.h>

#include "model/path.hpp"
#include "propose/run.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::TestCorpus;

std::string told(const ExpansionError &error) {
    return path_of(error.node) + ": " + error.message;
}

struct Expansions : testing::Test {
    // The expansion of a formula, or "path: message".
    std::string expanded(std::string_view path = ".", const ExpansionOptions &options = {}) {
        std::string out = ">";
        const auto error = expand(out, *corpus, corpus->at(path), options);
        if (!error) return out.substr(1);
        EXPECT_EQ(out, ">");
        return told(*error);
    }
    void read(std::string_view text, std::initializer_list<std::string_view> selected = {}) {
        corpus.reset();
        corpus.emplace(text);
        for (const auto path : selected) corpus->at(path)->select(true);
    }

    const ExpansionOptions whole{.whole = true};
    std::optional<TestCorpus> corpus;
};

constexpr const char *two_levels = "( (S|f(d1,d2) NP|a/x (VP|g(d1) V|v/y)) )";

TEST_F(Expansions, the_selection_says_how_deep) {
    read(two_levels, {".", "1", "2"});
    EXPECT_EQ(expanded(), "f(a,g(D1))");
    corpus->at("1")->select(false);
    corpus->at("2")->select(false);
    EXPECT_EQ(expanded(), "f(D1,D2)");
    EXPECT_EQ(expanded(".", whole), "f(a,g(v))");
    EXPECT_EQ(corpus->unsaved_changes, 0);
}

TEST_F(Expansions, what_a_reference_is) {
    read("( (S|and2(d02)dog(x)Dd2d NP|a/x VP|b/y) )", {"2"});
    EXPECT_EQ(expanded(), "anb(b)dog(x)Dbd");
    corpus->at("2")->select(false);
    EXPECT_EQ(expanded(), "anD2(D2)dog(x)DD2d");
}

TEST_F(Expansions, errors_name_the_node) {
    const std::pair<const char *, const char *> cases[] = {
        {"( (S|f(d3) NP|a/x VP|b/y) )", ".: \"d3\": non-existent daughter."},
        {"( (S|f(d1) NP|d1/x VP|b/y) )", "1: \"d1\": non-existent daughter."},
        {"( (S|f(d0) NP|a/x VP|b/y) )", ".: 0 is not a daughter number"},
        {"( (S|f(d000) NP|a/x VP|b/y) )", ".: 0 is not a daughter number"},
        {"( (S|f(d2) NP|a/x VP/y) )", "2: This node requires an annotation"},
        {"( (S NP|a/x) )", ".: This node requires an annotation"},
        {"( (S|d99999999999999999999 NP|a/x) )", ".: \"d99999999999999999999\": non-existent daughter."},
    };
    for (const auto &[text, message] : cases) {
        read(text);
        EXPECT_EQ(expanded(".", whole), message);
    }
}

TEST_F(Expansions, punctuation_that_is_referred_to_is_told) {
    read("( (S|f(d2,d1) NP|a/x .|stop/. !/!) )");
    std::vector<Node *> met;
    EXPECT_EQ(expanded(".", {.on_punctuation = [&](Node *daughter) { met.push_back(daughter); }}),
              "f(D2,D1)");
    EXPECT_EQ(met, std::vector<Node *>{corpus->at("2")});
}

TEST_F(Expansions, become_tags) {
    read("*( (S|f(d1,d2) NP|a/x (VP|g(d1) V|v/y)) )", {".", "1", "2", "2.1"});
    EXPECT_FALSE(expand_into_tags(*corpus, corpus->at(".")));
    EXPECT_EQ(corpus->text(), "(S|f(a,g(v)) NP|a/x (VP|g(v) V|v/y))");
    EXPECT_EQ(corpus->undo_of(corpus->at("1")).undo_sem, corpus->at("1")->sem());
    EXPECT_EQ(corpus->unsaved_changes, 4);
    EXPECT_EQ(corpus->sem("f(a,g(v))")->checked_count, 1);
}

TEST_F(Expansions, nodes_expanded_before_an_error_keep_their_new_tags) {
    read("( (S|f(d1,d2) (NP|h(d1) N|a/x) VP/y) )");
    EXPECT_TRUE(expand_into_tags(*corpus, corpus->at("."), whole));
    EXPECT_EQ(corpus->text(), "(S|f(d1,d2) (NP|h(a) N|a/x) VP/y)");
}

TEST_F(Expansions, one_that_is_no_tag_is_refused) {
    const std::string wide(600, 'x');
    read("( (S|d1d1 NP|" + wide + "/x) )", {".", "1"});
    const auto error = expand_into_tags(*corpus, corpus->at("."));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->node, corpus->at("."));
    EXPECT_EQ(corpus->at(".")->sem()->view(), "d1d1");
}

TEST_F(Expansions, of_doubling_formulas_are_refused) {
    std::string text = "x|t/w";
    for (int i = 0; i < 60; ++i) text = "(S|f(d1,d1) " + text + ")";
    read("( " + text + " )");
    EXPECT_EQ(expanded(".", whole), ".: Expansion too long");
}

TEST_F(Expansions, follow_a_deep_chain_of_references) {
    constexpr int depth = 200000;
    std::string text = "( ";
    for (int i = 0; i < depth; ++i) text += "(S|-d1 ";
    read(text + "X|t/w" + std::string(depth, ')') + " )");
    EXPECT_EQ(expanded(".", whole), std::string(depth, '-') + "t");
}

TEST_F(Expansions, begin_at_the_top_of_the_selection) {
    read(two_levels, {"2", "2.1"});
    EXPECT_EQ(top_of_selection(corpus->at("2.1")), corpus->at("2"));
    EXPECT_EQ(top_of_selection(corpus->at("1")), corpus->at("1"));
}

TEST_F(Expansions, of_all_roots_that_have_a_formula_end_at_an_error) {
    read("( (S|f(d1) A|a/x) )\n( (S A/x) )\n( (S|f(d2) A|a/x) )\n( (S|f(d1) A|b/x) )\n");
    std::string log;
    const auto failed = [&](const ExpansionError &error) { log += told(error); };
    brindle::Run run(*corpus, {0, 1, 2, 3});
    EXPECT_EQ(expand_all(run, failed), 2);
    EXPECT_EQ(log, ".: \"d2\": non-existent daughter.");
    EXPECT_EQ(corpus->text(0), "(S|f(a) A|a/x)");
    EXPECT_EQ(corpus->text(3), "(S|f(d1) A|b/x)");
}

TEST(Predicate, makes_the_lines_for_prolog) {
    const auto lines = [](const Predicate &p) {
        return p.evaluation_line("f(a)") + p.filter_line("t") + p.step_line("t");
    };
    Predicate predicate;
    EXPECT_EQ(lines(predicate), "f(a)\n(t).\nt.\n");
    predicate.set("");
    EXPECT_EQ(lines(predicate), "f(a)\nt.\nt.\n");
    predicate.set("p");
    EXPECT_EQ(lines(predicate), "p(f(a)).\np(t).\np(t).\n");
}

TEST(Predicate, is_shown_in_the_footer) {
    Predicate predicate;
    EXPECT_EQ(predicate.set(""), "Evaluation predicate: none");
    const std::string name(60, 'p');
    EXPECT_EQ(predicate.set(name), "Evaluation predicate: " + std::string(41, 'p'));
    EXPECT_EQ(predicate.text, name);
    EXPECT_EQ(predicate.set(std::string(40, 'p') + "\xc3\xa9"),
              "Evaluation predicate: " + std::string(40, 'p'));
}

}  // namespace
}  // namespace brindle
