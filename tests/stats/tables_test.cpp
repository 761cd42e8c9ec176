// The label tables: what an entry counts, when it comes and goes, and in which order the chains list them.
#include "stats/tables.hpp"

#include <gtest/gtest.h>

#include "support/corpus.hpp"

namespace brindle::test {
namespace {

class Tables : public testing::Test {
  protected:
    Tables() { reset_all(); }
    ~Tables() override { reset_all(); }
};

using TablesDeath = Tables;

TEST_F(Tables, the_absence_of_a_tag_is_one_entry_in_bucket_0) {
    storelabel(nullptr, LabelKind::SEM);
    LabelEntry *entry = storelabel(nullptr, LabelKind::SEM);
    EXPECT_EQ(entry, table[0].first);
    EXPECT_EQ(entry->name, nullptr);
    EXPECT_EQ(entry->count, 2);
    EXPECT_EQ(search("", LabelKind::SEM, MustExist::no), entry);
    EXPECT_EQ(search("", LabelKind::TERM, MustExist::no), nullptr);
}

TEST_F(Tables, one_text_has_an_entry_of_each_kind_and_the_chain_lists_them_as_first_stored) {
    Label *nn = intern("NN");
    LabelEntry *terminal = storelabel(nn, LabelKind::TERM);
    LabelEntry *other = storelabel(nn, LabelKind::NONTERM);
    storelabel(nn, LabelKind::TERM);
    EXPECT_EQ(table[nn->bucket].first, terminal);
    EXPECT_EQ(terminal->next, other);
    EXPECT_EQ(other->next, nullptr);
    EXPECT_EQ(search("NN", LabelKind::SEM, MustExist::no), nullptr);
}

TEST_F(Tables, both_counts_follow_the_flag_of_the_tree) {
    Label *x = intern("x");
    {
        TreeCheckedScope scope(true);
        storelabel(x, LabelKind::SEM);
        storelex(x);
    }
    storelabel(x, LabelKind::SEM);
    EXPECT_EQ(entries(LabelKind::SEM), "x:2(1)");
    {
        TreeCheckedScope scope(true);
        delete_old_label(x, LabelKind::SEM);
    }
    EXPECT_EQ(entries(LabelKind::SEM), "x:1(0)");
    EXPECT_EQ(word("x")->checked_count, 1);
}

TEST_F(Tables, an_entry_goes_with_its_last_occurrence_and_comes_back_at_the_end_of_its_chain) {
    // Two texts of one bucket: 16 * 'b' + 'a' = 16 * 'a' + 'q'.
    Label *ba = intern("ba"), *aq = intern("aq");
    ASSERT_EQ(ba->bucket, aq->bucket);
    storelex(ba);
    storelex(aq);
    delete_lex_label(ba);
    EXPECT_EQ(searchlex("ba", MustExist::no), nullptr);
    EXPECT_EQ(lex_table[ba->bucket].first, aq->word);
    storelex(ba);
    EXPECT_EQ(aq->word->next, ba->word);
    EXPECT_EQ(lex_table[ba->bucket].last, ba->word);
}

TEST_F(TablesDeath, what_must_exist_and_does_not_ends_the_program) {
    Label *x = intern("x");
    const char *message = "error: Fault in hashtable";
    EXPECT_EXIT(search("x", LabelKind::SEM, MustExist::yes), testing::ExitedWithCode(1), message);
    EXPECT_EXIT(search("never seen", LabelKind::SEM, MustExist::yes), testing::ExitedWithCode(1), message);
    EXPECT_EXIT(searchlex("x", MustExist::yes), testing::ExitedWithCode(1), message);
    EXPECT_EXIT(delete_old_label(x, LabelKind::TERM), testing::ExitedWithCode(1), message);
    EXPECT_EXIT(delete_lex_label(x), testing::ExitedWithCode(1), message);
    EXPECT_EXIT(handle_undo(x, nullptr), testing::ExitedWithCode(1), message);
}

TEST_F(Tables, init_empties_both_tables_and_the_labels_references) {
    storelabel(intern("x"), LabelKind::SEM);
    storelabel(nullptr, LabelKind::SEM);
    storelex(intern("x"));
    tables_init();
    EXPECT_EQ(entries(LabelKind::SEM), "");
    EXPECT_EQ(search("x", LabelKind::SEM, MustExist::no), nullptr);
    EXPECT_EQ(search("", LabelKind::SEM, MustExist::no), nullptr);
    EXPECT_EQ(searchlex("x", MustExist::no), nullptr);
    EXPECT_EQ(storelabel(intern("x"), LabelKind::SEM)->count, 1);
}

}  // namespace
}  // namespace brindle::test
