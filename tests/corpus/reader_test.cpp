#include "corpus/reader.hpp"

#include <random>

#include <gtest/gtest.h>

#include "base/text.hpp"
#include "edit/change.hpp"
#include "stats/verify.hpp"
#include "support/files.hpp"
#include "support/literal_tables.hpp"
#include "support/random_corpus.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

// The message of the error that reading the text gives, with line and column; "" if it is read.
std::string fault_of(std::string_view text) {
    Corpus corpus;
    try {
        read_trees(corpus, text);
    } catch (const FormatError &fault) {
        return fault.message + " @" + std::to_string(fault.place.line) + ":" +
               std::to_string(fault.place.column);
    }
    return "";
}

std::string trees_of(std::string_view text) {
    const TestCorpus corpus(text);
    std::string all;
    for (int t = 0; t < corpus.amount(); ++t)
        all += (corpus.tree(t).checked ? "*" : "") + corpus.text(t) + "\n";
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
    EXPECT_EQ(trees_of("( (S A/a) )\n" + std::string(10'000'000, '#')), "(S A/a)\n");
    EXPECT_EQ(trees_of(std::string(1'000'000, '\n') + "*( (S A/a) )"), "*(S A/a)\n");
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

TEST(reader, a_bracket_behind_a_category_or_annotation_opens_the_daughters) {
    EXPECT_EQ(trees_of("( (S(NP (N x/y)B/b)) )"), "(S (NP (N x/y) B/b))\n");
    EXPECT_EQ(trees_of("( (S|x(t)/w) )\n( (NP|x\n(NN/y)) )"), "(S|x(t)/w)\n(NP|x NN/y)\n");
    EXPECT_EQ(fault_of("( (NP|x(NN/y)) )"), "Unmatched '(' in semantic tag, line 1 @1:11")
        << "it is the tag's";
    EXPECT_EQ(fault_of("( (NP|t/x(NN/y)) )"), "Lexical item on a node with daughters, line 1 @1:10");
    EXPECT_EQ(fault_of("( (S A/a (B/b(C))) )"), "Lexical item on a node with daughters, line 1 @1:14");
    EXPECT_EQ(trees_of("( (S A/a(B) C(D)) )"), "(S A/a (B) (C) (D))\n") << "not those of a bare node";
}

TEST(reader, blanks_of_every_kind) {
    using namespace std::string_literals;
    EXPECT_EQ(trees_of("(\t(S\0A|t\0/w\v(NP\rB/b\f)\x7f) )\0"s), "(S (A|t) (/w) (NP B/b))\n");
    EXPECT_EQ(trees_of("* tree 1\r\n\r\n( (S\r\n A/a\r\n ) )\r\n"), "*(S A/a)\n");
}

// Each label stands also where the other way to write the node has been seen before.
TEST(reader, a_bare_node_may_begin_with_a_mark) {
    EXPECT_EQ(trees_of("( (S |a|b/w /c/d|t) )"), "(S |a|b/w (/c/d|t))\n");
    EXPECT_EQ(trees_of("( |f(x) )\n( /x )"), "(|f(x))\n(/x)\n");
    EXPECT_EQ(fault_of("( (S |x |x) )\n( (S (|x)) )"), "Empty node encountered in line 2 @2:7");
}

TEST(reader, every_format_error_names_its_place) {
    const std::string long_category(128, 'c'), long_tag(1024, 't');
    const struct {
        std::string text, fault;
    } cases[] = {
        {"\n( (S (NP A/a) )\n", "Unmatched '(' in tree nr 1, starting at line 2 @3:1"},
        {"( (S A/a) )\n\n( (S A/a) ) )\n", "Unmatched ')', somewhere between line 3 and line 3 @3:13"},
        {")", "Unmatched ')', somewhere between line 1 and line 1 @1:1"},
        {"( (S A/) )\n( (S\n", "Unmatched '(' in tree nr 2, starting at line 2 @3:1"},
        {"( (S\n A|a|b/x|c) )", "Two semantic tags on one node, line 2 @2:9"},
        {"( (S\n A/a|b/c) )", "Two lexical items on one node, line 2 @2:7"},
        {"( (S A|f(d1 B) )\n)", "Unmatched '(' in semantic tag, line 1 @1:12"},
        {"( (S\nA| B/b) )", "Semantic tag expected in line 2 @2:3"},
        {"( (S\n\nA/ B/b) )", "Lexical item expected in line 3 @3:3"},
        {"( ( A/a) )\n( ( ) )", "Empty node encountered in line 2 @2:5"},
        {"( (|x) )", "Empty node encountered in line 1 @1:4"},
        {"()", "Empty node encountered in line 1 @1:2"},
        {"( (S A/a) )\n( (S () A/a) )", "Empty node encountered in line 2 @2:7"},
        {"( ((NP A/a)) )", "Unexpected '(' in line 1 @1:4"},
        {"( (S NP ((NP A/a)) ) )", "Unexpected '(' in line 1 @1:10"},
        {"( (NP/word (NN x/y)) )", "Lexical item on a node with daughters, line 1 @1:12"},
        {"( (S " + long_category + "/x) )", "Syntactic category too long, line 1 @1:134"},
        {"( (S A/" + long_category + ") )", "Lexical item too long, line 1 @1:136"},
        {"( (S A|" + long_tag + "/x) )", "Semantic tag too long, line 1 @1:1032"},
        {"( (S A/" + std::string(10'000'000, 'x') + ") )", "Lexical item too long, line 1 @1:10000008"},
        {std::string(1'000'000, '('), "Unmatched '(' in tree nr 1, starting at line 1 @1:1000001"},
    };
    for (const auto &[text, fault] : cases) EXPECT_EQ(fault_of(text), fault) << text.substr(0, 100);
    EXPECT_EQ(fault_of("( (S " + long_category.substr(1) + "|" + long_tag.substr(1) + "/" +
                       long_category.substr(1) + ") )"),
              "");
}

// What the corpus reader never sees, as it counts the brackets first.
TEST(reader, a_node_that_ends_in_the_middle) {
    Corpus corpus;
    NodeBuilder builder(corpus);
    for (const std::string text : {"(S A/a\n", "(S", "  \n ", "(", "(S A", "(S A|f(", "(S A/"}) {
        const char *p = text.data();
        const FaultKind kind = builder.read(p, p + text.size(), 0).kind;
        const bool in_label = text.back() != '\n' && text.back() != ' ' && text != "(";
        EXPECT_EQ(kind, in_label ? FaultKind::end_in_label : FaultKind::end_of_text) << text;
    }
}

TEST(reader, deep_and_wide) {
    const int n = 300000;
    std::string deep = "(", wide = "( (S";
    for (int i = 0; i < n; ++i) deep += "(S ", wide += " A/a";
    deep += "A/a" + std::string(n, ')') + ")";
    wide += ") )";
    for (const auto &[text, words] : {std::pair(deep, 1), std::pair(wide, n)}) {
        TestCorpus corpus(text);
        EXPECT_EQ(corpus.amount(), 1);
        EXPECT_EQ(corpus.word("a")->count, words);
    }
}

TEST(reader, characters_follow_the_locale) {
    const std::string text = "( (S A/caf\xc3\xa9 B/b\xffz) )";
    set_text_mode(TextMode::utf8);  // a stray byte is a blank
    EXPECT_EQ(trees_of(text), "(S A/caf\xc3\xa9 B/b (z))\n");
    set_text_mode(TextMode::ascii);
    EXPECT_EQ(trees_of(text), "(S A/caf B/b (z))\n");
    EXPECT_TRUE(take_high_byte_warning());
    set_text_mode(TextMode::utf8);
}

TEST(reader, in_steps_of_any_size_is_reading_at_once) {
    for (const std::size_t bytes : {1u, 100u, 10'000u}) {
        const std::string text = random_corpus(static_cast<unsigned>(bytes), 60, 6);
        const TestCorpus at_once(text);
        Corpus in_steps;
        CorpusReader reader(in_steps, text);
        std::size_t before = 0;
        for (int steps = 0; reader.read_some(bytes); ++steps) {
            EXPECT_GE(reader.bytes_read(), before + 1);
            before = reader.bytes_read();
            EXPECT_TRUE(bytes > 1 || in_steps.amount() == steps + 1) << "a tree a step";
        }
        reader.finish();
        EXPECT_EQ(verify(in_steps), "");
        EXPECT_EQ(tables(in_steps), tables(at_once));
    }
}

TEST(reader, may_stop_early_and_finish) {
    const std::string text = random_corpus(3, 40, 6);
    for (const int trees : {0, 1, 7}) {
        Corpus corpus;
        CorpusReader reader(corpus, text);
        while (corpus.amount() < trees) ASSERT_TRUE(reader.read_some(1));
        reader.finish();
        EXPECT_EQ(verify(corpus), "");
        EXPECT_EQ(tables(corpus), LiteralTables(corpus).text());
        if (trees) set_tag(corpus, corpus.tree(0).root, "new");
        EXPECT_EQ(verify(corpus), "");
    }
}

}  // namespace
}  // namespace brindle::test
