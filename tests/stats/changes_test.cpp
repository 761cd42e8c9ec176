// Label changes: the statistics follow, and undo finds what it needs.
#include "stats/changes.hpp"

#include <gtest/gtest.h>

#include "model/limits.hpp"
#include "support/corpus.hpp"
#include "support/recording_front_end.hpp"

namespace brindle::test {
namespace {

TEST(new_label, the_first_tag_of_an_untagged_node) {
    Corpus c("( (S NN/cats) )");
    c.tag("1", "a");
    const Node *n = c.at("1");
    EXPECT_EQ(entries(LabelKind::SEM), "-:1(0) a:1(0)");
    EXPECT_EQ(links(term("NN")), "a:1(0)");
    EXPECT_EQ(MODIFIED, 1);
    EXPECT_TRUE(n->changed);
    EXPECT_EQ(n->orig_sem, nullptr);
    EXPECT_EQ(n->undo_sem, nullptr);

    c.tag("1", "b");
    EXPECT_EQ(entries(LabelKind::SEM), "-:1(0) a:1(0) b:1(0)") << "undo_sem keeps a";
    EXPECT_EQ(n->undo_sem, intern("a"));
    EXPECT_EQ(n->orig_sem, nullptr);
    EXPECT_EQ(MODIFIED, 1);
}

TEST(new_label, a_tagged_node_keeps_its_tag_twice_until_it_is_saved) {
    Corpus c("( (S|a NN/cats) )");
    c.tag(".", "b");
    EXPECT_EQ(entries(LabelKind::SEM), "-:1(0) a:2(0) b:1(0)");
    reset_edits();
    EXPECT_EQ(entries(LabelKind::SEM), "-:1(0) b:1(0)");
    EXPECT_EQ(MODIFIED, 0);
    EXPECT_FALSE(c.at(".")->changed);
}

TEST(new_label, changes_both_counts_in_a_checked_tree_only) {
    Corpus c("* ( (S NN|a/cats) )\n( (S NN|a/cats) )");
    c.tag("1", "b", 0);
    c.tag("1", "c", 1);
    reset_edits();
    EXPECT_EQ(entries(LabelKind::SEM), "-:2(1) b:1(1) c:1(0)");
    EXPECT_EQ(links(term("NN")), "b:1(1) c:1(0)");
    EXPECT_EQ(links(word("cats")), "NN|b:1(1) NN|c:1(0)");
}

TEST(new_label, blanks_become_underscores_and_an_empty_text_takes_the_tag_away) {
    Corpus c("( (S NN|x/cats) )");
    c.tag("1", "a b c");
    EXPECT_EQ(c.text(), "(S NN|a_b_c/cats)");
    c.tag("1", "");
    EXPECT_EQ(c.text(), "(S NN/cats)");
}

TEST(new_label, the_daughters_contexts_move_to_the_new_tag) {
    Corpus c("* ( (S (NP NN/cats NN/dogs)) )");
    c.tag("1", "x");
    EXPECT_EQ(contexts(term("NN")->links.first()->parents), "NP|x 2/2:1(1) NP|x 1/2:1(1)");
    EXPECT_EQ(contexts(word("cats")->links.first()->parents), "NP|x 1/2:1(1)");
    EXPECT_EQ(contexts(nonterm("NP")->links.first()->parents), "S|- 1/1:1(1)");
}

TEST(new_label, the_longest_tag_goes_and_a_longer_one_ends_the_program) {
    Corpus c("( (S NN/cats) )");
    c.tag("1", std::string(MAXSEM - 1, 'x'));
    EXPECT_EQ(c.at("1")->sem->size, MAXSEM - 1);
    EXPECT_EXIT(c.tag("1", std::string(MAXSEM, 'x')), testing::ExitedWithCode(1),
                "error: MAXSEM as defined in decndef too low!");
    EXPECT_EXIT(c.category("1", std::string(MAXSYN, 'x')), testing::ExitedWithCode(1),
                "error: MAXSYN as defined in decndef too low!");
}

TEST(new_label, repaints_the_window_that_is_given) {
    Corpus c("( (S NN/cats) )");
    RecordingFrontEnd front_end;
    TreeView view;
    new_label(c.at("1"), "x", &view);
    change_cat(c.at("1"), "VB", &view);
    change_cat(c.at("1"), "VB", nullptr);
    EXPECT_EQ(front_end.log, (std::vector<std::string>{"repaint", "repaint"}));
}

TEST(change_cat, moves_the_node_and_its_daughters_contexts) {
    Corpus c("( (S (NP|x NN/cats) (NP NN/dogs)) )");
    c.category("1", "a phrase");
    EXPECT_EQ(c.text(), "(S (a_phrase|x NN/cats) (NP NN/dogs))");
    EXPECT_EQ(links(nonterm("NP")), "-:1(0)");
    EXPECT_EQ(links(nonterm("a_phrase")), "x:1(0)");
    EXPECT_EQ(links(sem("x")), "a_phrase:1(0)");
    EXPECT_EQ(contexts(word("cats")->links.first()->parents), "a_phrase|x 1/1:1(0)");
    EXPECT_EQ(contexts(word("dogs")->links.first()->parents), "NP|- 1/1:1(0)");
}

TEST(change_cat, counts_as_a_change_each_time_until_the_tag_changes_too) {
    Corpus c("( (S NN/cats) )");
    c.category("1", "VB");
    c.category("1", "JJ");
    EXPECT_EQ(MODIFIED, 2);
    EXPECT_FALSE(c.at("1")->changed);
    c.tag("1", "x");
    c.category("1", "NN");
    EXPECT_EQ(MODIFIED, 3);
    c.category("1", "");
    EXPECT_EQ(c.text(), "(S NN|x/cats)");
}

TEST(undo, the_last_change_goes_back_and_forth) {
    Corpus c("( (S NN|a/cats) )");
    Node *n = c.at("1");
    EXPECT_FALSE(undo_last(n, nullptr));
    c.tag("1", "b");
    EXPECT_TRUE(undo_last(n, nullptr));
    EXPECT_EQ(n->sem, intern("a"));
    EXPECT_TRUE(undo_last(n, nullptr));
    EXPECT_EQ(n->sem, intern("b"));
    EXPECT_EQ(MODIFIED, 1);
}

TEST(undo, all_changes_go_back_to_the_saved_tag_and_leave_no_reference_behind) {
    Corpus c("( (S NN|a/cats NN/dogs) )");
    Node *n = c.at("1");
    for (const char *tag : {"b", "c", "d"}) c.tag("1", tag);
    EXPECT_TRUE(undo_all(n));
    EXPECT_EQ(c.text(), "(S NN|a/cats NN/dogs)");
    EXPECT_EQ(MODIFIED, 0);
    EXPECT_FALSE(undo_all(n));
    reset_edits();
    EXPECT_EQ(entries(LabelKind::SEM), "-:2(0) a:1(0)");
    c.tag("1", "b");
    reset_edits();
    EXPECT_EQ(entries(LabelKind::SEM), "-:2(0) b:1(0)") << "a later first change forgets nothing either";
}

TEST(undo, clear_changes_only_what_has_a_tag) {
    Corpus c("( (S|x NN/cats) )");
    clear(c.at("1"), nullptr);
    EXPECT_EQ(MODIFIED, 0);
    clear(c.at("."), nullptr);
    EXPECT_EQ(MODIFIED, 1);
    EXPECT_EQ(c.text(), "(S NN/cats)");
    EXPECT_TRUE(undo_last(c.at("."), nullptr));
    EXPECT_EQ(c.text(), "(S|x NN/cats)");
}

TEST(set_checked, moves_every_count_of_the_tree_and_back) {
    Corpus c("( (S (NP|x NN/cats) (NP NN/cats)) )\n* ( (S (NP NN/cats)) )");
    const auto state = [] {
        return entries(LabelKind::SEM) + " / " + links(nonterm("NP")) + " / " + links(word("cats")) + " / " +
               contexts(term("NN")->links.first()->parents);
    };
    const std::string before = state();
    set_checked(0, true);
    EXPECT_EQ(state(), "-:7(7) x:1(1) / -:2(2) x:1(1) / NN|-:3(3) / NP|- 1/1:2(2) NP|x 1/1:1(1)");
    set_checked(0, true);
    EXPECT_EQ(sem("")->checked_count, 7) << "nothing to do";
    set_checked(0, false);
    EXPECT_EQ(state(), before);
}

TEST(set_checked, leaves_the_references_of_undo_alone) {
    Corpus c("( (S NN|a/cats) )");
    c.tag("1", "b");
    set_checked(0, true);
    EXPECT_EQ(entries(LabelKind::SEM), "-:1(1) a:2(0) b:1(1)");
    set_checked(0, false);
    undo_all(c.at("1"));
}

}  // namespace
}  // namespace brindle::test
