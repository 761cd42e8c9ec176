// Texts of any layout are read as the definition says: first all brackets are counted, then at most as many
// trees are read. The reader itself goes through a text once, and counts only where it must.
#include <algorithm>
#include <random>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.hpp"
#include "corpus/reader.hpp"
#include "corpus/writetrees.hpp"
#include "stats/verify.hpp"

namespace brindle::test {
namespace {

// The trees with their marks.
std::string outcome(const Corpus &corpus) {
    std::string text;
    for (const Tree &tree : corpus.trees) {
        text += tree.checked ? "\n* " : "\n";
        write_tree(tree.root, text, 0);
    }
    return text;
}
std::string outcome(const std::string &message, const TextPlace &place) {
    return fmt::format("{} @{}:{}", message, place.line, place.column);
}

// The definition, step by step. A fault inside a tree has a place only, no message.
class TwoPasses {
  public:
    explicit TwoPasses(std::string_view text) : text_(text), p_(text.data()), end_(p_ + text.size()) {}

    std::string result() {
        const int amount = count();
        p_ = text_.data();
        while (fault_.empty() && corpus_.amount() < amount && open_tree()) read_tree();
        return fault_.empty() ? outcome(corpus_) : fault_;
    }

  private:
    void fail(const std::string &message, const char *at) { fault_ = outcome(message, place_in(text_, at)); }
    bool is_graphic() const { return graphic_length(p_, end_) > 0; }
    void pass_line() { p_ = std::find(p_, end_, '\n'); }

    int count() {
        int count = 0, depth = 0, line = 1, start_line = 1;
        bool only_blanks = true;  // before p_ on its line
        for (; p_ != end_ && fault_.empty(); ++p_) {
            const bool is_special = *p_ == '*' || *p_ == '(' || *p_ == ')';
            if (depth == 0 && only_blanks && !is_special && is_graphic()) pass_line();
            if (p_ == end_) break;
            only_blanks = *p_ == '\n' || (only_blanks && !is_graphic());
            line += *p_ == '\n';
            if (*p_ == '(' && depth++ == 0) start_line = line;
            if (*p_ == ')' && --depth == 0) ++count;
            if (depth < 0)
                fail(fmt::format("Unmatched ')', somewhere between line {} and line {}", start_line, line),
                     p_);
        }
        if (depth > 0)
            fail(fmt::format("Unmatched '(' in tree nr {}, starting at line {}", count + 1, start_line),
                 end_);
        return count;
    }

    bool open_tree() {
        checked_ = false;
        for (; p_ != end_ && *p_ != '('; p_ += p_ != end_) {
            if (*p_ == '*')
                checked_ = true;
            else if (is_graphic())
                pass_line();
        }
        return p_ != end_ && ++p_;
    }

    void read_tree() {
        NodeBuilder builder(corpus_);
        const SyntaxFault fault = builder.read_exactly(p_, end_, corpus_.amount());
        if (fault.kind != FaultKind::none) return fail("", fault.at);
        corpus_.trees.push_back({builder.top(), checked_});
    }

    std::string_view text_;
    const char *p_;
    const char *end_;
    Corpus corpus_;
    bool checked_ = false;
    std::string fault_;
};

std::string read_once(std::string_view text, const std::string &expected) {
    Corpus corpus;
    try {
        read_trees(corpus, text);
    } catch (const FormatError &fault) {
        return outcome(expected.starts_with(" @") ? "" : fault.message, fault.place);
    }
    EXPECT_EQ(verify(corpus), "");
    return outcome(corpus);
}

// Pieces of corpora, in any order.
std::string random_text(std::mt19937 &random) {
    static const std::vector<std::string> bytes = {"(",    ")",        "(",    ")",
                                                   " ",    "\n",       "*",    "|",
                                                   "/",    "a",        "S",    "\x7f",
                                                   "\x80", "\xc3\xa9", "\xc3", std::string(1, '\0'),
                                                   "\r",   "\t"},
                                          lines = {"( (S A/a) )", "( (S|f(d1) (NP NN|x/y) VP/b) )",
                                                   "\n",          "\n",
                                                   " ",           "*",
                                                   "* ",          "(",
                                                   ")",           "# comment\n",
                                                   "# (\n",       "x ) y\n",
                                                   "( S )",       "(S)",
                                                   "( (S A/a)",   " )",
                                                   "\xc3\xa9",    "a",
                                                   "(()",         "))",
                                                   "( (S A|)",    "(A B/b C|f(x)(y)/c)",
                                                   "\x7f",        "\x80"};
    const auto &pieces = random() % 2 ? bytes : lines;
    std::string text;
    for (auto n = 1 + random() % (&pieces == &bytes ? 30 : 14); n > 0; --n)
        text += pieces[random() % pieces.size()];
    const auto open = std::ranges::count(text, '(') - std::ranges::count(text, ')');
    if (open > 0 && random() % 2) text += std::string(static_cast<std::size_t>(open), ')');
    if (random() % 4 == 0) text += '\n' + lines[random() % lines.size()];
    return text;
}

TEST(reader_layout, any_text_is_read_as_in_two_passes) {
    std::mt19937 random(1);
    int read = 0, uneven = 0, unsound = 0;
    for (int i = 0; i < 10'000; ++i) {
        set_text_mode(i % 5 ? TextMode::utf8 : TextMode::ascii);
        const std::string text = random_text(random), expected = TwoPasses(text).result();
        ASSERT_EQ(read_once(text, expected), expected) << testing::PrintToString(text);
        ++(expected.starts_with(" @") ? unsound : expected.starts_with("Unmatched") ? uneven : read);
    }
    set_text_mode(TextMode::utf8);
    for (const int cases : {read, uneven, unsound}) EXPECT_GT(cases, 500);
}

TEST(reader_layout, any_bytes_are_an_answer) {
    std::mt19937 random(7);
    std::string megabytes(3'000'000, '\0');
    for (char &c : megabytes) c = static_cast<char>(random());
    EXPECT_TRUE(read_once(megabytes, "").starts_with("Unmatched"));
    // Far behind a fault in a tree the brackets do not balance: that is said first.
    EXPECT_EQ(read_once("( (S A|) )\n" + std::string(1'000'000, '\n') + ")", ""),
              "Unmatched ')', somewhere between line 1 and line 1000002 @1000002:1");
}

}  // namespace
}  // namespace brindle::test
