// The information displays, word for word.
#include "display/information.hpp"

#include <gtest/gtest.h>

#include <fmt/format.h>
#include <vector>

#include "model/path.hpp"
#include "stats/changes.hpp"
#include "support/made_tree.hpp"

namespace brindle {
namespace {

using test::add_tree;

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

std::string only_page(const Node *node, InfoMode mode, bool control = false) {
    Reader reader;
    const auto page = information(node, mode, control, reader.more());
    EXPECT_TRUE(reader.pages.empty());
    return page.value_or("(none)");
}

struct InformationTest : testing::Test {
    test::CleanCorpus clean;
};

TEST_F(InformationTest, category) {
    Node *root = add_tree("(S|s(d1,d2) (NP|j/john)(VP|walk/walks))", true);
    add_tree("(S (NP|m/mary)(VP|walk/walks))", true);
    add_tree("(S (NP/john)(VP|walk/walks))");
    EXPECT_EQ(only_page(root->dtrs, InfoMode::term),
              "Syntactic Tag: NP\n(Proper noun, singular)\n\nNumber of occurrences: 3\n\n66.7% is annotated"
              "\n\nOccurs with the following semantic tags:\n j : 1,     m : 1,    ");
    EXPECT_EQ(
        only_page(root, InfoMode::nonterm),
        "Syntactic Tag: S\n(Simple declarative clause)\n\nNumber of occurrences: 3\n\n66.7% is annotated"
        "\n\nOccurs with the following semantic tags:\n s(d1,d2) : 1,    (unlabeled) : 1");
}

TEST_F(InformationTest, category_that_occurs_only_unchecked_or_only_checked) {
    Node *root = add_tree("(X1 (NP|j/john))");
    EXPECT_EQ(only_page(root, InfoMode::nonterm),
              "Syntactic Tag: X1\n(Unknown label?!)\n\nNumber of occurrences: 1\n\n0.0% is annotated"
              "No checked occurrences");
    Node *checked = add_tree("(X2 (NP|j/john))", true);
    EXPECT_EQ(only_page(checked, InfoMode::nonterm),
              "Syntactic Tag: X2\n(Unknown label?!)\n\nNumber of occurrences: 1\n\n100.0% is annotated"
              "\n\nOccurs with the following semantic tags:\n(unlabeled) : 1");
}

TEST_F(InformationTest, tag) {
    Node *root = add_tree("(S|t (NP|t/john)(VP/walks))", true);
    add_tree("(S|t (NP|u/john)(VP/walks))");
    EXPECT_EQ(only_page(root, InfoMode::sem),
              "Semantic tag: t\n\nNumber of occurrences: 2"
              "\n\nOccurs with the following syntactic tags:\nS : 1,   NP : 1");
    EXPECT_EQ(only_page(root->dtrs->sister, InfoMode::sem),
              "Semantic tag: (unlabeled)\n\nNumber of occurrences: 1"
              "\n\nOccurs with the following syntactic tags:\nVP : 1");
    EXPECT_EQ(only_page(node_at(forest[1].root, "1"), InfoMode::sem), "\n\nUnchecked semantic tag.");
}

TEST_F(InformationTest, word) {
    Node *root = add_tree("(S (NP|j/john)(VP|w/walks))", true);
    add_tree("(S (NP/john)(VP|w/walks))", true);
    add_tree("(S (NP|k/john)(VP|w/runs))");
    EXPECT_EQ(only_page(root->dtrs, InfoMode::lex),
              "\nWord: john\n\nNumber of occurrences: 3\n\n66.7% is annotated"
              "\n\nOccurs with the following tags:\nSyntactic NP, Semantic j : 1"
              "\nSyntactic NP, Semantic (unlabeled) : 1");
    EXPECT_EQ(only_page(node_at(forest[2].root, "2"), InfoMode::lex), "No checked annotations");
}

TEST_F(InformationTest, mothers) {
    Node *root = add_tree("(S|s (NP|j/john)(VP|w (V|v/sees)(NP|j/john)))", true);
    EXPECT_EQ(only_page(root->dtrs, InfoMode::term, true),
              "This type of node occurs with the following (checked) parents:"
              "\n\nSyntactic: S, Semantic: s\nDaughter nr.: 1 of 2, Amount: 1"
              "\n\nSyntactic: VP, Semantic: w\nDaughter nr.: 2 of 2, Amount: 1");
    EXPECT_EQ(only_page(root, InfoMode::nonterm, true), "Root node");
    Node *unchecked = add_tree("(S (NP|m/mary)(VP|w/walks))");
    EXPECT_EQ(only_page(unchecked->dtrs, InfoMode::lex, true), "Unchecked node");
    EXPECT_EQ(only_page(unchecked, InfoMode::sem, true), "Root node");
}

TEST_F(InformationTest, mothers_of_a_word_are_not_those_of_its_category) {
    add_tree("(S (NP|n/mary)(VP|w/walks))", true);
    Node *root = add_tree("(Q (NP|n/john)(VP|w/walks))", true);
    EXPECT_EQ(only_page(root->dtrs, InfoMode::lex, true),
              "This type of node occurs with the following (checked) parents:"
              "\n\nSyntactic: Q, Semantic: (unlabeled)\nDaughter nr.: 1 of 2, Amount: 1");
}

// Tags of 27 characters: with " : 1" and the blank before it 32 characters, so two never share a line.
std::string long_tag(int i) {
    return fmt::format("a_tag_of_27_characters_____{:02}", i);
}

TEST_F(InformationTest, long_lists_break_lines_and_pages) {
    Node *root = nullptr;
    for (int i = 0; i < 10; ++i) root = add_tree(fmt::format("(C|{}/x)", long_tag(i)), true);
    Reader reader;
    const auto last = syn_info(root, reader.more());
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
    EXPECT_FALSE(syn_info(root, impatient.more()).has_value());
    EXPECT_EQ(impatient.pages.size(), 1u);
}

TEST_F(InformationTest, a_first_item_that_fills_a_line_begins_a_new_one) {
    const std::string tag(70, 't');
    Node *root = add_tree(fmt::format("(C|{}/x)", tag), true);
    EXPECT_EQ(only_page(root, InfoMode::term),
              "Syntactic Tag: C\n(Unknown label?!)\n\nNumber of occurrences: 1\n\n100.0% is annotated"
              "\n\nOccurs with the following semantic tags:\n\n " +
                  tag + " : 1");
}

TEST_F(InformationTest, a_word_shows_seven_tags_a_page) {
    Node *root = nullptr;
    for (int i = 0; i < 7; ++i) root = add_tree(fmt::format("(C|t{}/x)", i), true);
    Reader reader;
    EXPECT_EQ(lex_info(root, reader.more()).value_or("(none)"), "");
    ASSERT_EQ(reader.pages.size(), 1u);
    EXPECT_TRUE(reader.pages[0].ends_with("\nSyntactic C, Semantic t6 : 1"));
    Reader impatient{.patience = 0, .pages = {}};
    EXPECT_FALSE(lex_info(root, impatient.more()).has_value());
}

TEST_F(InformationTest, three_mothers_a_page) {
    Node *root = nullptr;
    for (int i = 0; i < 6; ++i) root = add_tree(fmt::format("(M{} (C|t/x))", i), true);
    Reader reader;
    const auto last = parent_info(root->dtrs, InfoMode::term, reader.more());
    ASSERT_EQ(reader.pages.size(), 1u);
    EXPECT_TRUE(
        reader.pages[0].ends_with("Syntactic: M2, Semantic: (unlabeled)\nDaughter nr.: 1 of 1, Amount: 1"));
    EXPECT_TRUE(last.value_or("").starts_with("\n\nSyntactic: M3, Semantic: (unlabeled)\n"));
    EXPECT_TRUE(
        last.value_or("").ends_with("Syntactic: M5, Semantic: (unlabeled)\nDaughter nr.: 1 of 1, Amount: 1"));
}

}  // namespace
}  // namespace brindle
