// The information displays, word for word.
#include "display/information.hpp"

#include <gtest/gtest.h>

#include <fmt/format.h>
#include <optional>
#include <vector>

#include "support/test_corpus.hpp"

namespace brindle {
namespace {

// Collects the pages and answers "More.." a number of times.
struct Reader {
    int patience = 1000;
    std::vector<std::string> pages;

    MoreInfo more() {
        return [this](std::string_view page) {
            pages.emplace_back(page);
            return patience-- > 0;
        };
    }
};

struct InformationTest : testing::Test {
    // Reads the corpus; its trees' roots can be asked for by their numbers, from 0.
    void read(std::string_view text) { corpus.emplace(text); }
    Node *at(std::string_view path, int tree = 0) const { return corpus->at(path, tree); }

    std::string only_page(const Node *node, InfoMode mode, bool control = false) const {
        Reader reader;
        const auto page = information(*corpus, node, mode, control, reader.more());
        EXPECT_TRUE(reader.pages.empty());
        return page.value_or("(none)");
    }

    std::optional<test::TestCorpus> corpus;
};

TEST_F(InformationTest, category) {
    read(
        "*( (S|s(d1,d2) NP|j/john VP|walk/walks) )\n*( (S NP|m/mary VP|walk/walks) )\n"
        "( (S NP/john VP|walk/walks) )");
    EXPECT_EQ(only_page(at("1"), InfoMode::term),
              "Syntactic Tag: NP\n(Proper noun, singular)\n\nNumber of occurrences: 3\n\n66.7% is annotated"
              "\n\nOccurs with the following semantic tags:\n j : 1,     m : 1,    ");
    EXPECT_EQ(
        only_page(at("."), InfoMode::nonterm),
        "Syntactic Tag: S\n(Simple declarative clause)\n\nNumber of occurrences: 3\n\n66.7% is annotated"
        "\n\nOccurs with the following semantic tags:\n s(d1,d2) : 1,    (unlabeled) : 1");
}

TEST_F(InformationTest, category_that_occurs_only_unchecked_or_only_checked) {
    read("( (X1 NP|j/john) )\n*( (X2 NP|j/john) )");
    EXPECT_EQ(only_page(at("."), InfoMode::nonterm),
              "Syntactic Tag: X1\n(Unknown label?!)\n\nNumber of occurrences: 1\n\n0.0% is annotated"
              "No checked occurrences");
    EXPECT_EQ(only_page(at(".", 1), InfoMode::nonterm),
              "Syntactic Tag: X2\n(Unknown label?!)\n\nNumber of occurrences: 1\n\n100.0% is annotated"
              "\n\nOccurs with the following semantic tags:\n(unlabeled) : 1");
}

TEST_F(InformationTest, tag) {
    read("*( (S|t NP|t/john VP/walks) )\n( (S|t NP|u/john VP/walks) )");
    EXPECT_EQ(only_page(at("."), InfoMode::sem),
              "Semantic tag: t\n\nNumber of occurrences: 2"
              "\n\nOccurs with the following syntactic tags:\nNP : 1,   S : 1");
    EXPECT_EQ(only_page(at("2"), InfoMode::sem),
              "Semantic tag: (unlabeled)\n\nNumber of occurrences: 1"
              "\n\nOccurs with the following syntactic tags:\nVP : 1");
    EXPECT_EQ(only_page(at("1", 1), InfoMode::sem), "\n\nUnchecked semantic tag.");
}

TEST_F(InformationTest, word) {
    read("*( (S NP|j/john VP|w/walks) )\n*( (S NP/john VP|w/walks) )\n( (S NP|k/john VP|w/runs) )");
    EXPECT_EQ(only_page(at("1"), InfoMode::lex),
              "\nWord: john\n\nNumber of occurrences: 3\n\n66.7% is annotated"
              "\n\nOccurs with the following tags:\nSyntactic NP, Semantic j : 1"
              "\nSyntactic NP, Semantic (unlabeled) : 1");
    EXPECT_EQ(only_page(at("2", 2), InfoMode::lex), "No checked annotations");
}

TEST_F(InformationTest, mothers) {
    read("*( (S|s NP|j/john (VP|w V|v/sees NP|j/john)) )\n( (S NP|m/mary VP|w/walks) )");
    EXPECT_EQ(only_page(at("1"), InfoMode::term, true),
              "This type of node occurs with the following (checked) parents:"
              "\n\nSyntactic: VP, Semantic: w\nDaughter nr.: 2 of 2, Amount: 1"
              "\n\nSyntactic: S, Semantic: s\nDaughter nr.: 1 of 2, Amount: 1");
    EXPECT_EQ(only_page(at("."), InfoMode::nonterm, true), "Root node");
    EXPECT_EQ(only_page(at("1", 1), InfoMode::lex, true), "Unchecked node");
    EXPECT_EQ(only_page(at(".", 1), InfoMode::sem, true), "Root node");
}

TEST_F(InformationTest, mothers_of_a_word_are_not_those_of_its_category) {
    read("*( (S NP|n/mary VP|w/walks) )\n*( (Q NP|n/john VP|w/walks) )");
    EXPECT_EQ(only_page(at("1", 1), InfoMode::lex, true),
              "This type of node occurs with the following (checked) parents:"
              "\n\nSyntactic: Q, Semantic: (unlabeled)\nDaughter nr.: 1 of 2, Amount: 1");
}

// Tags of 27 characters: with " : 1" and the blank before it 32 characters, so two never share a line.
std::string long_tag(int i) {
    return fmt::format("a_tag_of_27_characters_____{:02}", i);
}

TEST_F(InformationTest, long_lists_break_lines_and_pages) {
    std::string text;
    for (int i = 0; i < 10; ++i) text += fmt::format("*( (C|{}/x) )\n", long_tag(i));
    read(text);
    const Node *root = at(".");
    Reader reader;
    const auto last = create_syn_info(*corpus, root, reader.more());
    ASSERT_EQ(reader.pages.size(), 1u);
    std::string page =
        "Syntactic Tag: C\n(Unknown label?!)\n\nNumber of occurrences: 10\n\n100.0% is annotated"
        "\n\nOccurs with the following semantic tags:\n";
    for (int i = 0; i < 7; ++i) page += fmt::format("{} {} : 1,    ", i ? "\n" : "", long_tag(i));
    EXPECT_EQ(reader.pages[0], page);
    std::string rest;
    for (int i = 7; i < 10; ++i)
        rest += fmt::format("{} {} : 1{}", i > 7 ? "\n" : "", long_tag(i), i < 9 ? ",    " : "");
    EXPECT_EQ(last.value_or(""), rest);

    Reader impatient{.patience = 0, .pages = {}};
    EXPECT_FALSE(create_syn_info(*corpus, root, impatient.more()).has_value());
    EXPECT_EQ(impatient.pages.size(), 1u);
}

TEST_F(InformationTest, a_first_item_that_fills_a_line_begins_a_new_one) {
    const std::string tag(70, 't');
    read(fmt::format("*( (C|{}/x) )", tag));
    EXPECT_EQ(only_page(at("."), InfoMode::term),
              "Syntactic Tag: C\n(Unknown label?!)\n\nNumber of occurrences: 1\n\n100.0% is annotated"
              "\n\nOccurs with the following semantic tags:\n\n " +
                  tag + " : 1");
}

TEST_F(InformationTest, a_word_shows_seven_tags_a_page) {
    std::string text;
    for (int i = 0; i < 7; ++i) text += fmt::format("*( (C|t{}/x) )\n", i);
    read(text);
    const Node *root = at(".");
    Reader reader;
    EXPECT_EQ(create_lex_info(*corpus, root, reader.more()).value_or("(none)"), "");
    ASSERT_EQ(reader.pages.size(), 1u);
    EXPECT_TRUE(reader.pages[0].ends_with("\nSyntactic C, Semantic t6 : 1"));
    Reader impatient{.patience = 0, .pages = {}};
    EXPECT_FALSE(create_lex_info(*corpus, root, impatient.more()).has_value());
}

TEST_F(InformationTest, three_mothers_a_page) {
    std::string text;
    for (int i = 0; i < 6; ++i) text += fmt::format("*( (M{} C|t/x) )\n", i);
    read(text);
    Reader reader;
    const auto last = create_parent_info(*corpus, at("1"), InfoMode::term, reader.more());
    ASSERT_EQ(reader.pages.size(), 1u);
    EXPECT_TRUE(
        reader.pages[0].ends_with("Syntactic: M2, Semantic: (unlabeled)\nDaughter nr.: 1 of 1, Amount: 1"));
    EXPECT_TRUE(last.value_or("").starts_with("\n\nSyntactic: M3, Semantic: (unlabeled)\n"));
    EXPECT_TRUE(
        last.value_or("").ends_with("Syntactic: M5, Semantic: (unlabeled)\nDaughter nr.: 1 of 1, Amount: 1"));
}

}  // namespace
}  // namespace brindle
