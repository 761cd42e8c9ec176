// The example corpus and its lattices, as a user reads and saves them.
#include <gtest/gtest.h>

#include "corpus/writetrees.hpp"
#include "support/corpus.hpp"
#include "wordgraph/readwg.hpp"

namespace brindle {
namespace {

struct Text final : TextSink {
    bool write(std::string_view piece) override {
        all += piece;
        return true;
    }
    std::string all;
};

TEST(examples, the_corpus_is_saved_as_it_was_read) {
    const std::string text = test::example("travel.trees");
    ASSERT_FALSE(text.empty());
    const test::Corpus corpus(text);
    Text saved;
    ASSERT_TRUE(save_corpus(saved));
    EXPECT_EQ(saved.all, text);
}

TEST(examples, every_tree_has_a_lattice) {
    const test::Corpus corpus(test::example("travel.trees"));
    EXPECT_EQ(attach_wordgraphs(test::example("travel.lattices")), "");
    Text saved;
    ASSERT_TRUE(save_corpus(saved));
    const test::Corpus again(saved.all);
    EXPECT_EQ(amount, 167);
    EXPECT_EQ(saved.all.find("BEGIN_LATTICE 167\n") != std::string::npos, true);
    EXPECT_EQ(saved.all.find("BEGIN_LATTICE 168\n"), std::string::npos);
}

}  // namespace
}  // namespace brindle
