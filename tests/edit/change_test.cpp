// The one road of changes: what each change does, what undo finds, who hears of it.
#include "edit/change.hpp"

#include <gtest/gtest.h>

#include "base/limits.hpp"
#include "support/files.hpp"
#include "support/hearsay.hpp"
#include "support/random_edits.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

TEST(set_tag, keeps_for_undo_what_was_there) {
    TestCorpus c("( (S NN/cats) )");
    Node *const n = c.at("1");
    c.tag("1", "a");
    EXPECT_EQ(c.undo_of(n).undo_sem, nullptr);
    EXPECT_TRUE(n->changed());
    c.tag("1", "b");
    EXPECT_EQ(c.undo_of(n).undo_sem, c.labels.find("a"));
    EXPECT_EQ(c.undo_of(n).orig_sem, nullptr);
    EXPECT_EQ(c.unsaved_changes, 1);
    c.forget_edits();
    EXPECT_EQ(c.statistics->find("a", LabelKind::SEM), nullptr);
    EXPECT_FALSE(n->changed());
    EXPECT_EQ(c.unsaved_changes, 0);
    c.tag("1", "c");
    EXPECT_EQ(c.undo_of(n).orig_sem, c.labels.find("b"));
    EXPECT_EQ(c.sem("b")->count, 2) << "undo holds it twice";
}

TEST(set_tag, blanks_become_underscores_and_an_empty_text_takes_the_tag_away) {
    TestCorpus c("( (S|x NN|x/cats) )");
    c.tag("1", "a b c");
    EXPECT_EQ(c.text(), "(S|x NN|a_b_c/cats)");
    c.tag("1", "");
    clear(c, c.at("1"));
    EXPECT_EQ(c.unsaved_changes, 1) << "there was nothing to clear";
    clear(c, c.at("."));
    EXPECT_EQ(c.unsaved_changes, 2);
    EXPECT_EQ(c.text(), "(S NN/cats)");
}

TEST(set_category, counts_as_a_change_each_time_until_the_tag_changes_too) {
    TestCorpus c("( (S NN/cats) )");
    c.category("1", "a phrase");
    c.category("1", "JJ");
    EXPECT_EQ(c.unsaved_changes, 2);
    EXPECT_FALSE(c.at("1")->changed());
    c.tag("1", "x");
    c.category("1", "a noun");
    EXPECT_EQ(c.unsaved_changes, 3);
    EXPECT_FALSE(c.category("1", ""));
    EXPECT_EQ(c.text(), "(S a_noun|x/cats)");
}

TEST(undo, the_last_change_goes_back_and_forth) {
    TestCorpus c("( (S NN|a/cats) )");
    Node *n = c.at("1");
    EXPECT_FALSE(undo_last(c, n));
    c.tag("1", "b");
    for (const char *tag : {"a", "b"}) {
        EXPECT_TRUE(undo_last(c, n));
        EXPECT_EQ(n->sem()->view(), tag);
    }
    EXPECT_EQ(c.unsaved_changes, 1);
}

TEST(undo, all_changes_go_back_to_the_saved_tag_and_leave_no_reference_behind) {
    TestCorpus c("( (S NN|a/cats NN/dogs) )");
    Node *n = c.at("1");
    for (const char *tag : {"b", "c", "d"}) c.tag("1", tag);
    EXPECT_TRUE(undo_all(c, n));
    EXPECT_EQ(c.text(), "(S NN|a/cats NN/dogs)");
    EXPECT_EQ(c.unsaved_changes, 0);
    EXPECT_FALSE(undo_all(c, n));
    c.forget_edits();
    EXPECT_EQ(c.sem("a")->count, 1);
}

TEST(change, of_labels_as_long_as_there_may_be) {
    TestCorpus c("( (S NN/cats) )");
    EXPECT_FALSE(c.tag("1", std::string(MAXSEM - 1, 'x')) || c.category("1", std::string(MAXSYN - 1, 'x')));
    EXPECT_TRUE(c.tag("1", std::string(MAXSEM, 'x')) && c.category("1", std::string(MAXSYN, 'x')));
    const std::string text = saved(c);
    EXPECT_EQ(saved(TestCorpus(text)), text);
}

// ---------------------------------------------------------------- listeners

TEST(listener, hears_every_change_with_what_was_there_and_what_is) {
    for (unsigned seed = 0; seed < 10; ++seed) {
        TestCorpus c(random_corpus(seed, 8, 4));
        Hearsay listener(c);
        RandomEdits edits(c, seed, 4);
        edits.add({"another subtree", 2,
                   [&](Node *node) { EXPECT_FALSE(replace_subtree(c, node, "(N0|s1 t0/w1 (N1 |x))")); }});
        for (int i = 0; i < 200; ++i) {
            edits.step();
            listener.expect_true_of(c);
        }
        EXPECT_GT(listener.heard, 100);
    }
}

TEST(listener, hears_nothing_of_what_is_refused_or_changes_nothing) {
    TestCorpus c("* ( (S NN|a/cats) )");
    Hearsay listener(c);
    Node *const n = c.at("1");
    const std::string before = saved(c) + tables(c);
    for (const char *tag : {"a/b", "(", "a\tb"}) EXPECT_TRUE(set_tag(c, n, tag)) << tag;
    for (const char *category : {"a/b", "a|b", "(", "a\tb"})
        EXPECT_TRUE(set_category(c, n, category)) << category;
    EXPECT_EQ(replace_subtree(c, n, "(NP a"), "Error on or before line 1:\nUnmatched '('");
    EXPECT_EQ(replace_subtree(c, n, "NP"), "Error on line 1:\nUnexpected end of tree");
    set_category(c, n, "");
    set_checked(c, 0, true);
    clear(c, c.at("."));
    undo_last(c, n);
    undo_all(c, n);
    EXPECT_EQ(listener.heard, 0);
    EXPECT_EQ(saved(c) + tables(c), before);
    EXPECT_EQ(c.unsaved_changes, 0);
}

}  // namespace
}  // namespace brindle::test
