#include "corpus/readtrees.hpp"

#include <random>

#include <gtest/gtest.h>

#include "model/text.hpp"
#include "support/corpus.hpp"

namespace brindle {
namespace {

using test::Corpus;

// The message of the error that reading the text gives; "" if it is read.
std::string fault_of(std::string_view text) {
    std::string message;
    try {
        read_forest(text, "");
    } catch (const FormatError &fault) {
        message = fault.message;
    }
    test::reset_all();
    return message;
}

std::string trees_of(std::string_view text) {
    Corpus corpus(text);
    std::string all;
    for (int t = 0; t < amount; ++t) all += (corpus.tree(t).checked ? "*" : "") + corpus.text(t) + "\n";
    return all;
}

TEST(reader, trees_marks_and_comments) {
    EXPECT_EQ(trees_of(""), "");
    EXPECT_EQ(trees_of("no brackets at all"), "");
    EXPECT_EQ(trees_of("tree #1\n*\n( (S (NP NN/cats) (VP VBZ/sleep)) )"),
              "*(S (NP NN/cats) (VP VBZ/sleep))\n");
    EXPECT_EQ(trees_of("** ( (S A/a) )\n( (S A/b) ) trailing words\n\n* (\n(S A/c))"),
              "*(S A/a)\n(S A/b)\n*(S A/c)\n");
    EXPECT_EQ(trees_of("# a comment with ) and (\n( (S A/a) )\nfoo ((\n"), "(S A/a)\n");
    EXPECT_EQ(trees_of("( (S A/a) ) ( (S A/b) )\n( (S A/c) )"), "(S A/a)\n(S A/c)\n");
}

TEST(reader, labels) {
    EXPECT_EQ(trees_of("( (S (NP NN|thing/cats NN/cats|thing)) )"), "(S (NP NN|thing/cats NN|thing/cats))\n");
    EXPECT_EQ(trees_of("( (S A|f(d1,g(d2))/w B|a|b C/a/b D|p) )"),
              "(S A|f(d1,g(d2))/w (B|a|b) C/a/b (D|p))\n");
    EXPECT_EQ(trees_of("( (S|a(b)(c) (N|x) B/b) )"), "(S|a(b)(c) (N|x) B/b)\n");
    EXPECT_EQ(trees_of("( (S(NP (N x/y)B/b)) )"), "(S (NP (N x/y) B/b))\n");
    EXPECT_EQ(trees_of("( (S |x (T)) )"), "(S (|x) (T))\n");
}

TEST(reader, one_node_trees) {
    for (const char *text : {"( (S) )", "( (S ) )", "( S )", "(S)", "(\r\n(S\r\n)\r\n)\r\n"})
        EXPECT_EQ(trees_of(text), "(S)\n") << text;
}

TEST(reader, blanks_of_every_kind) {
    using namespace std::string_literals;
    EXPECT_EQ(trees_of("(\t(S\0A|t\0/w\v(NP\rB/b\f)\x7f) )\0"s), "(S (A|t) (/w) (NP B/b))\n");
    EXPECT_EQ(trees_of("* tree 1\r\n\r\n( (S\r\n A/a\r\n ) )\r\n"), "*(S A/a)\n");
    EXPECT_EQ(trees_of("( (S A/a) )\n" + std::string(10'000'000, '#')), "(S A/a)\n");
    EXPECT_EQ(trees_of(std::string(1'000'000, '\n') + "*( (S A/a) )"), "*(S A/a)\n");
    EXPECT_EQ(lines, 1'000'001);
}

TEST(reader, a_bare_node_may_begin_with_a_mark) {
    EXPECT_EQ(trees_of("( (S |a|b/w /c/d|t) )"), "(S |a|b/w (/c/d|t))\n");
    EXPECT_EQ(trees_of("( |f(x) )\n( /x )"), "(|f(x))\n(/x)\n");
}

TEST(reader, every_format_error_names_its_line) {
    const std::string long_category(128, 'c'), long_tag(1024, 't');
    const struct {
        std::string text, message;
    } cases[] = {
        {"\n( (S (NP A/a) )\n", "Unmatched '(' in tree nr 1, starting at line 2"},
        {"( (S A/a) )\n\n( (S A/a) ) )\n", "Unmatched ')', somewhere between line 3 and line 3"},
        {")", "Unmatched ')', somewhere between line 1 and line 1"},
        {"( (S\n A|a|b/x|c) )", "Two semantic tags on one node, line 2"},
        {"( (S\n A/a|b/c) )", "Two lexical items on one node, line 2"},
        {"( (S A|f(d1 B) )\n)", "Unmatched '(' in semantic tag, line 1"},
        {"( (S\nA| B/b) )", "Semantic tag expected in line 2"},
        {"( (S\n\nA/ B/b) )", "Lexical item expected in line 3"},
        {"( ( A/a) )\n( ( ) )", "Empty node encountered in line 2"},
        {"( (|x) )", "Empty node encountered in line 1"},
        {"()", "Empty node encountered in line 1"},
        {"( ((NP A/a)) )", "Unexpected '(' in line 1"},
        {"( (NP/word (NN x/y)) )", "Lexical item on a node with daughters, line 1"},
        {"( (S " + long_category + "/x) )", "Syntactic category too long, line 1"},
        {"( (S A/" + long_category + ") )", "Lexical item too long, line 1"},
        {"( (S A|" + long_tag + "/x) )", "Semantic tag too long, line 1"},
    };
    for (const auto &[text, message] : cases) EXPECT_EQ(fault_of(text), message) << text;
    EXPECT_EQ(fault_of("( (S " + long_category.substr(1) + "|" + long_tag.substr(1) + "/" +
                       long_category.substr(1) + ") )"),
              "");
}

TEST(reader, an_error_carries_the_line_as_a_number) {
    try {
        read_forest("( (S A/a) )\n\n( (S\nA|) )\n", "");
        ADD_FAILURE() << "no error";
    } catch (const FormatError &fault) {
        EXPECT_EQ(fault.line, 4);
    }
    test::reset_all();
}

TEST(reader, a_tree_that_ends_in_the_middle) {
    const auto fault = [](std::string_view text) -> std::string {
        try {
            TreeEntry entry;
            readtree(entry, text);
        } catch (const FormatError &found) {
            test::reset_all();
            return found.message;
        }
        return "";
    };
    EXPECT_EQ(fault("(S A/a\n"), "Unexpected end of file");
    EXPECT_EQ(fault("(S\nA"), "Unexpected end of file on line 2");
    EXPECT_EQ(fault("  \n "), "Unexpected end of file");
}

TEST(reader, positions_and_order_of_storing) {
    Corpus corpus("( (S (NP NN/cats) (VP VBZ/sleep)) )");
    EXPECT_EQ(dtr_nr(corpus.at(".")), 0);
    EXPECT_EQ(nr_of_sisters(corpus.at(".")), 0);
    EXPECT_EQ(dtr_nr(corpus.at("2")), 2);
    EXPECT_EQ(nr_of_sisters(corpus.at("2.1")), 1);
    EXPECT_EQ(test::links(test::sem("")), "NN:1(0) NP:1(0) VBZ:1(0) VP:1(0) S:1(0)");
}

TEST(reader, deep_wide_and_long) {
    const int n = 300000;
    std::string deep = "(", wide = "( (S";
    for (int i = 0; i < n; ++i) deep += "(S ", wide += " A/a";
    deep += "A/a" + std::string(n, ')') + ")";
    wide += ") )";
    for (const auto &[text, words] : {std::pair(deep, 1), std::pair(wide, n)}) {
        Corpus corpus(text);
        EXPECT_EQ(amount, 1);
        EXPECT_EQ(test::word("a")->count, words);
    }
    EXPECT_EQ(fault_of("( (S A/" + std::string(10'000'000, 'x') + ") )"), "Lexical item too long, line 1");
    EXPECT_EQ(fault_of(std::string(1'000'000, '(')), "Unmatched '(' in tree nr 1, starting at line 1");
}

TEST(reader, random_bytes_are_an_answer_not_a_crash) {
    std::mt19937 random(7);
    const std::string_view likely = "()()|/ \n*aS.\0\x80\xc3\xa9";
    int faults = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (int i = 0; i < 40; ++i) text += likely[random() % likely.size()];
        faults += !fault_of(text).empty();
    }
    EXPECT_GT(faults, 1000);
    std::string megabytes(3'000'000, '\0');
    for (char &c : megabytes) c = static_cast<char>(random());
    EXPECT_NE(fault_of(megabytes), "");
}

TEST(reader, characters_follow_the_locale) {
    const std::string text = "( (S A/caf\xc3\xa9 B/b\xffz) )";
    set_text_mode(TextMode::utf8);  // a stray byte is a blank
    EXPECT_EQ(trees_of(text), "(S A/caf\xc3\xa9 B/b (z))\n");
    set_text_mode(TextMode::ascii);
    EXPECT_EQ(trees_of(text), "(S A/caf B/b (z))\n");
    set_text_mode(TextMode::utf8);
}

}  // namespace
}  // namespace brindle
