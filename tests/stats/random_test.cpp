// After any sequence of work the statistics are those of the trees: proved by a recount at every few steps,
// and at the end against the tables of the saved corpus when it is read from nothing.
#include <gtest/gtest.h>

#include "corpus/readtrees.hpp"
#include "corpus/writetrees.hpp"
#include "stats/verify.hpp"
#include "support/corpus.hpp"
#include "support/random_edits.hpp"
#include "support/table_image.hpp"

namespace brindle::test {
namespace {

struct TextInMemory : TextSink {
    std::string text;
    bool write(std::string_view piece) override {
        text += piece;
        return true;
    }
};

std::string last(const std::vector<std::string> &log, std::size_t n) {
    std::string out = "after:\n";
    for (std::size_t i = log.size() > n ? log.size() - n : 0; i < log.size(); ++i) out += log[i] + "\n";
    return out;
}

// Each word occurs in the corpus at least once or the tables would not have it: so equal images mean equal
// trees too.
void work_and_compare(unsigned seed, int vocabulary, int steps, int steps_between_recounts) {
    RandomEdits edits(seed, vocabulary);
    for (int i = 0; i < steps; ++i) {
        edits.step();
        if (i % steps_between_recounts == 0) {
            ASSERT_EQ(verify_tables(), "") << "seed " << seed << ", " << last(edits.log, 20);
        }
    }
    ASSERT_EQ(verify_tables(), "") << "seed " << seed << ", " << last(edits.log, 20);
    const TableImage image = table_image();
    TextInMemory saved;
    ASSERT_TRUE(save_corpus(saved));
    reset_all();
    read_forest(saved.text, "");
    EXPECT_EQ(difference(image, table_image()), "") << "seed " << seed;
}

TEST(random_work, on_small_corpora_of_few_labels) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        Corpus c(random_corpus(seed, 4, 3));
        work_and_compare(seed, 3, 150, 1);
    }
}

TEST(random_work, on_corpora_whose_lists_grow_long) {
    for (unsigned seed = 100; seed < 110; ++seed) {
        Corpus c(random_corpus(seed, 60, 40));
        work_and_compare(seed, 40, 1500, 25);
    }
}

TEST(random_work, on_slices_of_real_corpora) {
    for (const char *name : {"gum.trees", "geo-formula.trees", "geo-label-blank.trees"}) {
        const std::string text = shared_corpus(name);
        if (text.empty()) continue;
        Corpus c(first_trees(text, 150));
        work_and_compare(7, 30, 1500, 100);
    }
}

}  // namespace
}  // namespace brindle::test
