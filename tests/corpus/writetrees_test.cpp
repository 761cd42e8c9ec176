#include "corpus/writetrees.hpp"

#include <gtest/gtest.h>

#include "corpus/information.hpp"
#include "corpus/readtrees.hpp"
#include "model/request.hpp"
#include "support/corpus.hpp"
#include "support/files.hpp"
#include "support/recording_front_end.hpp"

namespace brindle {
namespace {

using test::Corpus;
using test::StringSink;

std::string saved_text() {
    StringSink sink;
    EXPECT_TRUE(save_corpus(sink));
    return sink.text;
}

TEST(writer, a_tree_as_it_is_saved) {
    Corpus corpus("( (S (NP NN/cats) (VP VBZ/sleep)) )\n* ( (X (Y) Z|t/w) )\n( (S A/a ./. B/b) )");
    EXPECT_EQ(saved_text(),
              "\n\ntree #1\n(\n (S\n    (NP NN/cats)\n    (VP VBZ/sleep)))\n"
              "\ntree #2\n*\n( (X Y Z|t/w))\n"
              "\ntree #3\n(\n (S A/a\n    ./. B/b))\n");
}

TEST(writer, no_trees) {
    Corpus corpus("");
    EXPECT_EQ(saved_text(), "\n");
}

// The text as it is saved after it has been read.
std::string read_and_saved(const std::string &text) {
    test::reset_all();
    read_forest(text, "");
    std::string saved = saved_text();
    test::reset_all();
    return saved;
}

TEST(writer, a_saved_corpus_reads_back_the_same) {
    for (const char *name : {"gum.trees", "gum-blank.trees", "gum-utf8.trees", "gum-utf8-blank.trees",
                             "geo-label.trees", "geo-label-blank.trees"}) {
        const std::string text = test::shared_corpus(name);
        EXPECT_TRUE(text.empty() || read_and_saved(text) == text) << name;
    }
    for (const char *name : {"geo-formula.trees", "geo-formula-blank.trees"}) {
        const std::string once = read_and_saved(test::shared_corpus(name));
        EXPECT_TRUE(read_and_saved(once) == once) << name;
    }
    Corpus corpus("* ( (S|f(d1) (NP (N a/b)) (VP (V|x) W ./.)) )\n( (A (B (C) ?/?)) )");
    const std::string once = saved_text();
    const std::string tags = test::entries(LabelKind::SEM);
    read_forest(once, "");
    EXPECT_EQ(saved_text(), once);
    EXPECT_EQ(test::entries(LabelKind::SEM), tags);
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
    Corpus corpus(text + std::string(depth, ')') + ")");
    Pieces pieces;
    EXPECT_TRUE(save_corpus(pieces));
    EXPECT_EQ(pieces.total, 14u + 4u * width + 2u * depth * (depth + 1));
    EXPECT_LE(pieces.longest, TextBuffer::piece_size);
    struct Full : TextSink {
        bool write(std::string_view) override { return ++calls < 2; }
        int calls = 0;
    } full;
    EXPECT_FALSE(save_corpus(full));
    EXPECT_EQ(full.calls, 2);
}

std::string documented(const EvaluateFormula &evaluate) {
    StringSink sink;
    EXPECT_TRUE(write_documented_corpus(sink, nullptr, evaluate));
    return sink.text;
}

TEST(information, every_tree_with_words_formula_and_bracketing) {
    Corpus corpus("( (S (NP NN/cats) (VP VBZ/sleep)) )\n( (S|f A/a) )\n( (S) )\n");
    const std::string text = documented([](const Node *root) -> Formula {
        if (!root->dtrs) return {Formula::Outcome::rejected, "?"};
        return root->sem ? Formula{Formula::Outcome::evaluated, "(f)"} : Formula{};
    });
    EXPECT_EQ(text,
              "\n======-1-======\n\ncats sleep \n\nCould not create formula\n\n"
              "(\n (S\n    (NP NN/cats)\n    (VP VBZ/sleep)))\n"
              "\n======-2-======\n\na \n\n(f)\n\n(\n (S|f A/a))\n"
              "\n======-3-======\n\n\n\nFormula rejected\n\n( S)\n");
}

TEST(information, stops_between_two_trees_when_the_batch_is_stopped) {
    Corpus corpus("( (S A/a) )\n( (S B/b) )\n( (S C/c) )\n");
    test::RecordingFrontEnd user;
    int dispatches = 0;
    user.on_dispatch = [&] {
        EXPECT_TRUE(BATCH);
        if (++dispatches == 2) BATCH = false;
    };
    const std::string text = documented({});
    EXPECT_NE(text.find("\na \n"), std::string::npos);
    EXPECT_EQ(text.find("\nb \n"), std::string::npos);
    EXPECT_EQ(user.log.front(), "all busy");
    EXPECT_EQ(user.log.back(), "all idle");
    EXPECT_FALSE(BATCH);
}

}  // namespace
}  // namespace brindle
