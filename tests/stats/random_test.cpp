// After any sequence of work the statistics are those of the trees, and the corpus can be saved and read
// again.
#include <gtest/gtest.h>

#include "stats/verify.hpp"
#include "support/files.hpp"
#include "support/random_edits.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

std::string last(const std::vector<std::string> &log, std::size_t n) {
    std::string out = "after:\n";
    for (std::size_t i = log.size() > n ? log.size() - n : 0; i < log.size(); ++i) out += log[i] + "\n";
    return out;
}

void work_and_compare(std::string_view text, unsigned seed, int vocabulary, int steps,
                      int steps_between_recounts) {
    TestCorpus c(text);
    RandomEdits edits(c, seed, vocabulary);
    for (int i = 0; i < steps; ++i) {
        edits.step();
        if (i % steps_between_recounts == 0) {
            ASSERT_EQ(verify(c), "") << "seed " << seed << ", " << last(edits.log, 20);
        }
    }
    const std::string text_after = saved(c);
    EXPECT_EQ(saved(TestCorpus(text_after)), text_after) << "seed " << seed;
}

TEST(random_work, on_small_corpora_of_few_labels) {
    for (unsigned seed = 0; seed < 60; ++seed) work_and_compare(random_corpus(seed, 4, 3), seed, 3, 150, 1);
}

TEST(random_work, on_corpora_whose_lists_grow_long) {
    for (unsigned seed = 100; seed < 110; ++seed)
        work_and_compare(random_corpus(seed, 60, 40), seed, 40, 1500, 25);
}

TEST(random_work, on_slices_of_real_corpora) {
    for (const char *name : {"gum.trees", "geo-formula.trees", "geo-label-blank.trees"})
        if (const std::string text = shared_corpus(name); !text.empty())
            work_and_compare(first_trees(text, 150), 7, 30, 1500, 100);
}

// Everything about a corpus: its text, its tables in their order, its edit state.
std::string state_of(const Corpus &c) {
    return saved(c) + tables(c) + std::to_string(c.unsaved_changes);
}

TEST(random_work, on_two_corpora_in_turns_is_what_it_is_on_each_alone) {
    for (unsigned seed = 0; seed < 10; ++seed) {
        const std::string texts[] = {random_corpus(seed, 8, 4), random_corpus(seed + 50, 12, 6)};
        TestCorpus a(texts[0]), b(texts[1]);
        RandomEdits edits_a(a, seed, 4), edits_b(b, seed + 50, 6);
        for (int i = 0; i < 200; ++i) {
            edits_a.step();
            edits_b.step();
            ASSERT_EQ(verify(a) + verify(b), "") << "seed " << seed << ", step " << i;
        }
        const auto alone = [&](unsigned which, unsigned own_seed, int vocabulary) {
            TestCorpus c(texts[which]);
            RandomEdits edits(c, own_seed, vocabulary);
            for (int i = 0; i < 200; ++i) edits.step();
            return state_of(c);
        };
        EXPECT_EQ(state_of(a), alone(0, seed, 4));
        EXPECT_EQ(state_of(b), alone(1, seed + 50, 6));
    }
}

}  // namespace
}  // namespace brindle::test
