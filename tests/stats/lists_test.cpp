// Entries, lists and mother contexts of small corpora, written out by hand.
#include <gtest/gtest.h>

#include "edit/change.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

// In the order of checked counts, then of first occurrence; the contexts of one mother rightmost first.
TEST(lists, what_occurs_together) {
    EXPECT_EQ(tables(TestCorpus("( (X|t X|z/w X|u/w X/v) )\n* ( (S X|u/w (Y X|u/v)) )\n* ( (S X/v X/v) )")),
              R"(2 -:6(5): X/5:3(2) S/4:2(2) Y/4:1(1)
4 S:2(2): -:2(2) []
5 X:7(4): u:3(2) [Y|- 1/1:1(1) S|- 1/2:1(1) X|t 2/3:1(0)] -:3(2) [S|- 2/2:1(1) S|- 1/2:1(1) X|t 3/3:1(0)] z:1(0) [X|t 1/3:1(0)]
4 X:1(0): t:1(0) []
4 Y:1(1): -:1(1) [S|- 2/2:1(1)]
2 t:1(0): X/4:1(0)
2 u:3(2): X/5:3(2)
2 z:1(0): X/5:1(0)
0 v:4(3): X|-:3(2) [S|- 2/2:1(1) S|- 1/2:1(1) X|t 3/3:1(0)] X|u:1(1) [Y|- 1/1:1(1)]
0 w:3(1): X|u:2(1) [S|- 1/2:1(1) X|t 2/3:1(0)] X|z:1(0) [X|t 1/3:1(0)]
)");
}

TEST(lists, an_entry_that_goes_and_comes_again_is_the_last_of_its_chain) {
    // Two texts of one bucket: 16 * 'b' + 'a' = 16 * 'a' + 'q'.
    TestCorpus c("( (S N/ba N/aq) )");
    const auto chain = [&] {
        std::string names;
        for (const LexEntry *e = c.statistics->lex_table[hash("ba")].first; e; e = e->next)
            names += e->name->text();
        return names;
    };
    EXPECT_EQ(chain(), "baaq");
    replace_subtree(c, c.at("1"), "N/x\n");
    EXPECT_EQ(c.statistics->find_word("ba"), nullptr);
    EXPECT_EQ(chain(), "aq");
    replace_subtree(c, c.at("1"), "N/ba\n");
    EXPECT_EQ(chain(), "aqba");
}

TEST(lists, of_what_was_never_counted_nothing_can_be_taken) {
    TestCorpus c("( (S N/w) )");
    const auto message = "error: Fault in hashtable";
    EXPECT_EXIT(c.statistics->discount_tag(c.labels.intern("x"), false), testing::ExitedWithCode(1), message);
    EXPECT_EXIT(c.statistics->release(c.labels.intern("x")), testing::ExitedWithCode(1), message);
}

}  // namespace
}  // namespace brindle::test
