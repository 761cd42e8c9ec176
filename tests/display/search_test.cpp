#include "display/search.hpp"

#include <gtest/gtest.h>

#include <fmt/format.h>

#include "model/path.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using enum ReplaceChoice;

struct SearchTest : testing::Test {
    test::TestCorpus corpus{
        "*( (S|s (NP|x NN|dd/dog) VP|d/runs) )\n"
        "( (S|s NP|x/john (VP V|d/sees NP|y/mary)) )\n"
        "( (S NP/dog) )"};
    std::string question;

    Addresses resolve(const SearchRequest &request, LabelKind answer = LabelKind::TERM) {
        return init_adresses(corpus, request, [&](const std::string &asked) {
            question = asked;
            return answer;
        });
    }
    // The matches as "tree:path", or the messages.
    std::string matches(const SearchRequest &request, LabelKind answer = LabelKind::TERM, int from = 0) {
        Addresses addresses = resolve(request, answer);
        std::string out;
        for (const auto &message : addresses.messages) out += message.text + (message.silent ? ";" : "!;");
        if (!addresses.pattern) return out;
        CorpusSearch search(corpus, std::move(*addresses.pattern), from);
        while (const auto match = search.next())
            out += fmt::format("{}{}:{}", out.empty() ? "" : " ", match->tree, path_of(match->node));
        return out;
    }
};

TEST_F(SearchTest, whole_labels) {
    EXPECT_EQ(matches({.syn = "S", .lex = "", .sem = "s"}), "0:. 1:.");
    EXPECT_EQ(matches({.syn = "", .lex = "dog", .sem = ""}), "0:1.1 2:1");
    EXPECT_EQ(matches({.syn = "", .lex = "", .sem = "d"}, LabelKind::TERM, 1), "1:2.1");
    EXPECT_EQ(matches({.syn = "S", .lex = "", .sem = "d"}), "");
}

TEST_F(SearchTest, parts_of_labels) {
    EXPECT_EQ(matches({.syn = "N", .lex = "", .sem = "", .complete_labels = false}),
              "0:1 0:1.1 1:1 1:2.2 2:1");
    EXPECT_EQ(matches({.syn = "", .lex = "", .sem = "d", .complete_labels = false}), "0:1.1 0:2 1:2.1");
    EXPECT_EQ(matches({.syn = "N", .lex = "o", .sem = "x", .complete_labels = false}), "1:1");
}

TEST_F(SearchTest, a_category_with_and_without_words_is_two_labels) {
    EXPECT_EQ(matches({.syn = "NP", .lex = "", .sem = ""}, LabelKind::TERM), "1:1 1:2.2 2:1");
    EXPECT_EQ(question,
              "There are two different syntactic categories called NP;\n\033\n\t\t"
              "a terminal and a non-terminal. Which one do you mean?");
    EXPECT_EQ(matches({.syn = "NP", .lex = "", .sem = ""}, LabelKind::NONTERM), "0:1");
    EXPECT_TRUE(is_term_and_nonterm(corpus, {.syn = "NP", .lex = "", .sem = ""}));
    question.clear();
    EXPECT_EQ(matches({.syn = "NP", .lex = "dog", .sem = ""}), "2:1");
    EXPECT_EQ(matches({.syn = "NP", .lex = "", .sem = "", .complete_labels = false}, LabelKind::TERM),
              "0:1 1:1 1:2.2 2:1");
    EXPECT_EQ(question, "");
    EXPECT_FALSE(is_term_and_nonterm(corpus, {.syn = "NP", .lex = "dog", .sem = ""}));
    EXPECT_FALSE(is_term_and_nonterm(corpus, {.syn = "V", .lex = "", .sem = ""}));
}

TEST_F(SearchTest, unknown_labels_are_told_in_order) {
    EXPECT_EQ(matches({.syn = "", .lex = "", .sem = ""}), "You need to specify at least one field!!;");
    EXPECT_EQ(matches({.syn = "Q", .lex = "", .sem = "q"}),
              "Syntactic label \"Q\" does not occur in this corpus;Neither does \"q\";");
    EXPECT_EQ(matches({.syn = "Q", .lex = "cat", .sem = "q"}),
              "Syntactic label \"Q\" does not occur in this corpus;Neither does \"q\";Nor \"cat\";");
    EXPECT_EQ(matches({.syn = "S", .lex = "cat", .sem = "q"}),
              "Semantic label \"q\" does not occur in this corpus;Neither does \"cat\";");
    EXPECT_EQ(matches({.syn = "S", .lex = "cat", .sem = ""}),
              "Lexical item \"cat\" does not occur in this corpus;");
    EXPECT_EQ(matches({.syn = " S", .lex = "", .sem = ""}),
              "Syntactic label \" S\" does not occur in this corpus;");
    EXPECT_EQ(matches({.syn = "Q", .lex = "", .sem = "", .complete_labels = false}), "");
}

TEST_F(SearchTest, what_cannot_be_replaced) {
    const SearchRequest tag{.syn = "", .lex = "", .sem = "d"}, category{.syn = "S", .lex = "", .sem = ""};
    EXPECT_EQ(cannot_replace(category, semantics, "x"), "No semantic tag to replace!");
    EXPECT_EQ(cannot_replace(tag, semantics, ""), std::nullopt);
    EXPECT_EQ(cannot_replace(tag, syntax, "x"), "No syntactic  tag to replace!");
    EXPECT_EQ(cannot_replace(category, syntax, ""), "Illegal empty replace field");
    EXPECT_EQ(cannot_replace(category, syntax, "a/b|c"),
              "You cannot use '|' in a syntactic tag; it is\n\033\n \t\t\t\tdefined as START_SEM_TAG in "
              "conventions");
    EXPECT_TRUE(cannot_replace(category, syntax, "a/b"));
    EXPECT_TRUE(cannot_replace(category, syntax, "a)"));
    EXPECT_TRUE(cannot_replace(tag, semantics, "f("));
    const SearchRequest part{.syn = "", .lex = "", .sem = "d", .complete_labels = false};
    EXPECT_FALSE(cannot_replace(part, semantics, "f("));
    EXPECT_TRUE(cannot_replace(part, semantics, "a/b"));
}

TEST_F(SearchTest, replacing_goes_on_after_the_node_and_keeps_the_counts) {
    const SearchRequest part{.syn = "", .lex = "", .sem = "d", .complete_labels = false};
    CorpusSearch search(corpus, std::move(*resolve(part).pattern), 0);
    int replaced = 0;
    while (const auto match = search.next()) {
        EXPECT_EQ(replace_at(corpus, match->node, part, semantics, "d1d"), std::nullopt);
        ++replaced;
    }
    EXPECT_EQ(replaced, 3);
    EXPECT_EQ(corpus.text(0), "(S|s (NP|x NN|d1dd1d/dog) VP|d1d/runs)");
    EXPECT_EQ(corpus.sem("d1d")->checked_count, 1);
    EXPECT_EQ(corpus.unsaved_changes, 3);
}

TEST_F(SearchTest, a_label_that_comes_during_the_search_is_found) {
    CorpusSearch search(corpus, std::move(*resolve({"", "", "q", false}).pattern), 0);
    EXPECT_FALSE(search.next());
    corpus.tag("2", "qq", 1);
    EXPECT_EQ(search.next()->node, corpus.at("2", 1));
}

TEST_F(SearchTest, a_search_may_be_ended_on_the_way) {
    std::string text;
    for (int t = 0; t < 30000; ++t) text += t == 29999 ? "( (A|last/b) )\n" : "( (A|x/b) )\n";
    test::TestCorpus many(text);
    int asked = 0;
    const auto search = [&](int patience) {
        asked = 0;
        return CorpusSearch(many, Pattern::substring({}, "last", {}), 0,
                            [&asked, patience] { return ++asked <= patience; })
            .next();
    };
    EXPECT_EQ(search(10)->tree, 29999);
    EXPECT_EQ(asked, 3);
    EXPECT_FALSE(search(1));
}

TEST_F(SearchTest, replacing_whole_labels) {
    const SearchRequest request{.syn = "NN", .lex = "", .sem = "dd"};
    replace_at(corpus, corpus.at("1.1"), request, syntax, "N N");
    replace_at(corpus, corpus.at("1.1"), request, semantics, "");
    EXPECT_EQ(corpus.text(0), "(S|s (NP|x N_N/dog) VP|d/runs)");
}

TEST_F(SearchTest, a_label_that_would_not_be_read_back_is_refused_at_its_node) {
    const SearchRequest part{.syn = "", .lex = "", .sem = "d", .complete_labels = false};
    EXPECT_TRUE(replace_at(corpus, corpus.at("2"), part, semantics, "f("));
    EXPECT_TRUE(replace_at(corpus, corpus.at("1.1"), part, semantics, std::string(600, 'x')));
    EXPECT_EQ(corpus.text(0), "(S|s (NP|x NN|dd/dog) VP|d/runs)");
    EXPECT_EQ(corpus.unsaved_changes, 0);
}

}  // namespace
}  // namespace brindle
