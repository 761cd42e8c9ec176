#include "edit/bracketing.hpp"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "base/text.hpp"
#include "corpus/node_builder.hpp"

namespace brindle::test {
namespace {

struct Case {
    const char *text;
    const char *message;
};

TEST(bracketing, says_what_is_wrong_and_where) {
    const Case cases[] = {
        {"(S|a\n    (NP\n        DT/the)", "Error on or before line 3:\nUnmatched '('"},
        {"(S\n    NN/x))", "Error on line 2:\nUnmatched ')'"},
        {")(", "Error on line 1:\nUnmatched ')'"},
        {"(S\n    NN/x)\n(T\n    NN/y)", "Error on line 3:\nUnexpected start of new tree ('(')"},
        {"(S|f(d1\n    NN/x)", "Error on or before line 2:\nUnmatched '('"},
        {"(S|f(d1\n    NN/x))", "Error on line 1:\nUnmatched '('"},
        {"(S\n    NN|a/x|b)", "Error on line 2:\nTwo semantic tags on one node."},
        {"(S NN/a|b/c)", "Two lexical items on one node, line 1"},
        {"(S\n    NN/)", "Error on line 2:\nLexical item expected"},
        {"(S NN| x)", "Error on line 1:\nSemantic tag expected"},
        {"(S (NN/house))", "Error on line 1:\nTerminal node starting with ("},
        {"(/x)", "Error on line 1:\nTerminal node starting with ("},
        {"(S ((NP) x))", "Error on line 1:\nUnexpected '('"},
        {"(S NN/(x))", "Error on line 1:\nUnexpected '('"},
        {"( \n|x)", "Error on line 2:\nEmpty node encountered"},
        {"(S () )", "Error on line 1:\nEmpty node encountered"},
        {"(NP|t/word (NN x))", "Error on line 1:\nLexical item on a node with daughters"},
        {"(NP|t/word\n\n NN)", "Error on line 3:\nLexical item on a node with daughters"},
        {"", "Error on line 1:\nUnexpected end of tree"},
        {" \n ", "Error on line 2:\nUnexpected end of tree"},
        {"S", "Error on line 1:\nUnexpected end of tree"},
    };
    for (const Case &c : cases) EXPECT_EQ(check_bracketing(c.text), c.message) << c.text;
}

TEST(bracketing, accepts_what_the_editor_writes_and_people_type) {
    for (const char *text :
         {"\n(S|s1\n    (NP|s2\n        DT/the\n        NN|s3/dog)\n    VB/barks)", "S ", "S\n",
          "NN|tag/house\n", "(S)", "(S (NP))", "(S(NP)(VP))", "(S|f(d1,g(d2)) (NP x))", "(NP|t/word)",
          "(NP|t/word )", "(S NN|a|b/x)", "(S NN/a/b)", "(S |x /y)", "(S\tx\n)"})
        EXPECT_EQ(check_bracketing(text), "") << text;
}

TEST(bracketing, refuses_labels_that_the_reader_could_not_hold) {
    const std::string most(127, 'a'), tag(1023, 't');
    EXPECT_EQ(check_bracketing("(" + most + " " + most + "|" + tag + "/" + most + ")"), "");
    for (const std::string &text : {"(S\n" + most + "a)", "(S\n N/" + most + "a)", "(S\n N|" + tag + "t)"})
        EXPECT_EQ(check_bracketing(text), "Error on line 2:\nLabel too long");
}

TEST(bracketing, characters_are_those_of_the_locale) {
    const TextMode before = text_mode();
    set_text_mode(TextMode::utf8);
    EXPECT_EQ(check_bracketing("(S N/caf\303\251)"), "");
    EXPECT_EQ(check_bracketing("(S N/\303)"), "Error on line 1:\nLexical item expected");
    set_text_mode(TextMode::ascii);
    EXPECT_EQ(check_bracketing("(S N/\303\251)"), "Error on line 1:\nLexical item expected");
    set_text_mode(before);
}

TEST(bracketing, a_million_levels_need_no_stack) {
    std::string text;
    for (int i = 0; i < 1'000'000; ++i) text += "(A ";
    EXPECT_EQ(check_bracketing(text + "B" + std::string(1'000'000, ')')), "");
    EXPECT_EQ(check_bracketing(text + "B/" + std::string(1'000'000, ')')),
              "Error on line 1:\nLexical item expected");
}

// Whether the reader reads the text, both when its tokens are new and when they have come before.
bool is_read(const std::string &text) {
    Corpus corpus;
    NodeBuilder builder(corpus);
    const std::string twice = text + text;
    bool read[2];
    for (const std::size_t i : {0u, 1u}) {
        const char *p = twice.data() + i * text.size();
        read[i] = builder.read(p, twice.data() + twice.size(), 0).kind == FaultKind::none;
    }
    EXPECT_EQ(read[0], read[1]) << text;
    return read[0];
}

// The checks and the reader agree on any text: what passes is read, and what the reader reads is refused only
// for what the checks alone look at.
TEST(bracketing, lets_through_exactly_what_the_reader_reads) {
    std::mt19937 random(1);
    const char *const pieces[] = {"(",  "(", ")",  ")",   "|",   "/",     " ",        "|a",
                                  "\n", "a", "NP", "(S ", "N/x", "f(d1)", "\303\251", "(|a"};
    int passed = 0, refused = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::string text = random() % 4 ? "(S" : "";
        for (auto n = random() % 12; n > 0; --n) text += pieces[random() % std::size(pieces)];
        const auto open = std::ranges::count(text, '(') - std::ranges::count(text, ')');
        if (open > 0 && random() % 2) text += std::string(static_cast<std::size_t>(open), ')');
        text += '\n';
        if (!check_tree_in_editor(text).empty()) continue;
        const std::string message = check_readtree(text);
        ++(message.empty() ? passed : refused);
        const bool checks_alone = message.find("Terminal node starting with") != std::string::npos;
        ASSERT_TRUE(checks_alone || is_read(text) == message.empty()) << text << "\n" << message;
    }
    EXPECT_GT(passed, 500);
    EXPECT_GT(refused, 500);
}

}  // namespace
}  // namespace brindle::test
