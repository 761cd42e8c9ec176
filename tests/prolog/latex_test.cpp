#include "prolog/latex.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "model/traversal.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::TestCorpus;

void select_all(const TestCorpus &c) {
    for_each_in_subtree(c.tree(0).root, [](Node *n) { n->select(true); });
}

std::string body(const TestCorpus &c, bool show = false) {
    std::string out;
    latexbody(out, c.tree(0).root, 0, show);
    return out;
}

TEST(latex, a_tree_of_two_words) {
    const TestCorpus c("( (S|s(d1,d2) (NP/john)(VP/walks)) )");
    select_all(c);
    const std::string document = latex_document(c.at("1"), 2, "c", false);
    EXPECT_EQ(document.substr(document.find("{\\textwidth}{!}\n{")),
              "{\\textwidth}{!}\n{\\setlength{\\GapDepth}{5.5ex}\n\\setlength{\\GapWidth}{1.8em}\n"
              "\\begin{bundle}{\\synsemlabel{S}{s(d1,d2)}}\n"
              "\t\\chunk{\\setlength{\\GapDepth}{5.5ex}\n"
              "\t\\begin{bundle}{\\synlabel{NP}}\n"
              "\t\t\\chunk{\\lexlabel{john}}\n"
              "\t\\end{bundle}}\n"
              "\t\\chunk{\\setlength{\\GapDepth}{5.5ex}\n"
              "\t\\begin{bundle}{\\synlabel{VP}}\n"
              "\t\t\\chunk{\\lexlabel{walks}}\n"
              "\t\\end{bundle}}\n"
              "\\end{bundle}}\n"
              "\\caption{(subtree of) tree nr: 3 in corpus c}\n\\end{figure}\n}\n\\end{document}\n");
    EXPECT_TRUE(
        document.starts_with("\\documentclass{article}\n%\\usepackage[dvips]{graphics} % Uncomment "));
    std::string head;
    latexheader(head);
    EXPECT_EQ(std::count(head.begin(), head.end(), '\n'), 31);
    EXPECT_NE(head.find("{\\shortstack{\\synstyle{#1}\\\\\\semstyle{#2}}}}\n"), std::string::npos);
    EXPECT_NE(head.find("\n%\\small  %The size"), std::string::npos);
    EXPECT_NE(head.find("too far apart, \n"), std::string::npos);
}

TEST(latex, ten_characters_are_escaped) {
    EXPECT_EQ(latexlabel("NP_SBJ"), "NP\\_SBJ");
    EXPECT_EQ(latexlabel("50%"), "50\\%");
    EXPECT_EQ(latexlabel("#$%&\\^_{}~"), "\\#\\$\\%\\&\\\\\\^\\_\\{\\}\\~");
    EXPECT_EQ(latexlabel("\xc3\xa9|/()"), "\xc3\xa9|/()");
    std::string end;
    latexend(end, 0, "my_corpus");
    EXPECT_NE(end.find("nr: 1 in corpus my\\_corpus}\n"), std::string::npos);
}

TEST(latex, a_node_whose_first_daughter_is_not_selected_is_a_plain_label) {
    const TestCorpus c("( (S (A|t (X/x)(Y/y))(B/b)) )");
    select_all(c);
    c.at("1.1")->select(false);
    EXPECT_NE(body(c).find("\t\\chunk{\\synsemlabel{A}{t}}\n\t\\chunk{\\setlength"), std::string::npos);
    EXPECT_EQ(body(c).find("{y}"), std::string::npos);
}

TEST(latex, hidden_punctuation_ends_the_sisters) {
    const TestCorpus c("( (S (A/a)(./.)(B/b)) )");
    select_all(c);
    EXPECT_EQ(body(c).find("\\lexlabel{b}"), std::string::npos);
    EXPECT_NE(body(c, true).find("\\synlabel{.}}\n\t\t\\chunk{\\lexlabel{.}}"), std::string::npos);
    EXPECT_NE(body(c, true).find("\\lexlabel{b}"), std::string::npos);
    c.at("2")->select(false);
    EXPECT_EQ(body(c, true).find("\\lexlabel{b}"), std::string::npos);
}

TEST(latex, only_the_selection_is_written_and_its_braces_balance) {
    const TestCorpus c("( (S (A (B (C/c)(D/d))(E/e))(F/f)) )");
    for (const char *path : {"1", "1.1", "1.1.1", "1.1.2", "1.2"}) c.at(path)->select(true);
    const std::string document = latex_document(c.at("1.1.2"), 0, "c", false);
    const std::string_view tail(document.data() + document.find("{\\textwidth}"));
    EXPECT_EQ(std::count(tail.begin(), tail.end(), '{') + 1, std::count(tail.begin(), tail.end(), '}'));
    EXPECT_EQ(tail.find("{S}"), tail.npos);
    EXPECT_EQ(tail.find("{f}"), tail.npos);
    EXPECT_NE(tail.find("{e}"), tail.npos);
}

}  // namespace
}  // namespace brindle
