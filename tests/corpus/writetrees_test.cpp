#include "corpus/writetrees.hpp"

#include <gtest/gtest.h>

#include "corpus/information.hpp"
#include "support/files.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::saved;
using test::StringSink;
using test::TestCorpus;

TEST(writer, a_tree_as_it_is_saved) {
    TestCorpus corpus("( (S (NP NN/cats) (VP VBZ/sleep)) )\n* ( (X (Y) Z|t/w) )\n( (S A/a ./. B/b) )");
    EXPECT_EQ(saved(corpus),
              "\n\ntree #1\n(\n (S\n    (NP NN/cats)\n    (VP VBZ/sleep)))\n"
              "\ntree #2\n*\n( (X Y Z|t/w))\n"
              "\ntree #3\n(\n (S A/a\n    ./. B/b))\n");
}

TEST(writer, a_saved_corpus_reads_back_the_same) {
    for (const char *name : {"gum.trees", "gum-blank.trees", "gum-utf8.trees", "gum-utf8-blank.trees",
                             "geo-label.trees", "geo-label-blank.trees"}) {
        const std::string text = test::shared_corpus(name);
        EXPECT_TRUE(text.empty() || saved(TestCorpus(text)) == text) << name;
    }
    const std::string travel = test::example("travel.trees");
    EXPECT_FALSE(travel.empty());
    EXPECT_EQ(saved(TestCorpus(travel)), travel);
    for (const std::string &text : {test::shared_corpus("geo-formula.trees"),
                                    std::string("* ( (S|f(d1) (NP (N a/b)) (VP (V|x) W ./.)) )\n"
                                                "( (A (B (C) ?/?)) )\n( |x )\n( (S |y /z|t) )")}) {
        const TestCorpus corpus(text);
        const TestCorpus again(saved(corpus));
        EXPECT_TRUE(saved(again) == saved(corpus));
        EXPECT_TRUE(test::tables(again) == test::tables(corpus));
    }
}

TEST(writer, deep_and_wide_trees_pass_through_a_bounded_buffer) {
    struct Pieces : TextSink {
        bool write(std::string_view piece) override {
            longest = std::max(longest, piece.size());
            total += piece.size();
            return true;
        }
        std::size_t longest = 0, total = 0;
    };
    const int depth = 1000, width = 100000;
    std::string text = "( ";
    for (int i = 0; i < depth; ++i) text += "(A ";
    for (int i = 0; i < width; ++i) text += "B/b ";
    TestCorpus corpus(text + std::string(depth, ')') + ")");
    Pieces pieces;
    EXPECT_TRUE(save_corpus(corpus, pieces));
    EXPECT_EQ(pieces.total, 14u + 4u * width + 2u * depth * (depth + 1));
    EXPECT_LE(pieces.longest, TextBuffer::piece_size);
    struct Full : TextSink {
        bool write(std::string_view) override { return ++calls < 2; }
        int calls = 0;
    } full;
    EXPECT_FALSE(save_corpus(corpus, full));
    EXPECT_EQ(full.calls, 2);
}

TEST(information, every_tree_with_words_formula_and_bracketing) {
    TestCorpus corpus("( (S (NP NN/cats) (VP VBZ/sleep)) )\n( (S|f A/a) )\n( (S) )\n");
    const auto evaluate = [](const Node *root) -> Formula {
        if (!root->dtrs()) return {Formula::Outcome::rejected, "?"};
        return root->sem() ? Formula{Formula::Outcome::evaluated, "(f)"} : Formula{};
    };
    StringSink sink;
    EXPECT_TRUE(write_documented_corpus(corpus, sink, evaluate, {}));
    EXPECT_EQ(sink.text,
              "\n======-1-======\n\ncats sleep \n\nCould not create formula\n\n"
              "(\n (S\n    (NP NN/cats)\n    (VP VBZ/sleep)))\n"
              "\n======-2-======\n\na \n\n(f)\n\n(\n (S|f A/a))\n"
              "\n======-3-======\n\n\n\nFormula rejected\n\n( S)\n");
}

TEST(information, what_comes_after_a_no_is_left_out) {
    TestCorpus corpus("( (S A/a) )\n( (S B/b) )\n( (S C/c) )\n");
    StringSink sink;
    int trees = 0;
    EXPECT_TRUE(write_documented_corpus(corpus, sink, {}, [&] { return ++trees < 2; }));
    EXPECT_EQ(sink.text, "\n======-1-======\n\na \n\nCould not create formula\n\n(\n (S A/a))\n");
}

}  // namespace
}  // namespace brindle
