// Which labels occur together, in which order the lists name them, and in which mother contexts.
#include "stats/links.hpp"

#include <gtest/gtest.h>

#include "model/traversal.hpp"
#include "support/corpus.hpp"

namespace brindle::test {
namespace {

TEST(links, a_category_lists_its_tags_as_they_first_occurred_and_each_tag_its_category) {
    Corpus c("( (S NN/cats NN|thing/dogs) )");
    EXPECT_EQ(links(term("NN")), "-:1(0) thing:1(0)");
    EXPECT_EQ(links(sem("thing")), "NN:1(0)");
    EXPECT_EQ(links(sem("")), "NN:1(0) S:1(0)");
    EXPECT_EQ(links(word("cats")), "NN|-:1(0)");
    EXPECT_EQ(links(word("dogs")), "NN|thing:1(0)");
}

TEST(links, what_occurs_in_checked_trees_comes_first) {
    Corpus c("( (S NN/cats NN/cats) )\n* ( (S NN|thing/cats) )");
    EXPECT_EQ(links(term("NN")), "thing:1(1) -:2(0)");
    EXPECT_EQ(links(word("cats")), "NN|thing:1(1) NN|-:2(0)");
}

TEST(links, elements_checked_equally_often_keep_their_places_whatever_their_counts) {
    Corpus c("* ( (S A|x/w A|y/w A|z/w) )\n( (S A|z/w A|z/w A|y/w) )");
    EXPECT_EQ(links(term("A")), "x:1(1) y:2(1) z:3(1)");
    EXPECT_EQ(links(word("w")), "A|x:1(1) A|y:2(1) A|z:3(1)");
}

TEST(links, a_category_of_both_kinds_has_two_lists) {
    Corpus c("( (X|t (X X|u/x)) )");
    EXPECT_EQ(links(nonterm("X")), "-:1(0) t:1(0)");
    EXPECT_EQ(links(term("X")), "u:1(0)");
}

TEST(parents, every_node_but_the_root_is_recorded_under_its_mother) {
    Corpus c("( (S (NP NN/cats) (VP VBZ/sleep)) )");
    const auto context = [](LabelEntry *category) { return contexts(category->links.first()->parents); };
    EXPECT_EQ(context(nonterm("NP")), "S|- 1/2:1(0)");
    EXPECT_EQ(context(nonterm("VP")), "S|- 2/2:1(0)");
    EXPECT_EQ(context(term("NN")), "NP|- 1/1:1(0)");
    EXPECT_EQ(context(term("VBZ")), "VP|- 1/1:1(0)");
    EXPECT_EQ(context(nonterm("S")), "");
    EXPECT_EQ(contexts(word("cats")->links.first()->parents), "NP|- 1/1:1(0)");
    EXPECT_EQ(contexts(word("sleep")->links.first()->parents), "VP|- 1/1:1(0)");
    EXPECT_EQ(contexts(sem("")->links.first()->parents), "") << "a tag's links have no contexts";
}

TEST(parents, are_recorded_daughters_before_mothers_and_the_rightmost_first) {
    Corpus c("( (S A/a A/a (A/a) A/a) )");
    EXPECT_EQ(contexts(term("A")->links.first()->parents),
              "S|- 4/4:1(0) S|- 3/4:1(0) S|- 2/4:1(0) S|- 1/4:1(0)");
}

TEST(parents, withdrawing_and_recording_again_leaves_the_lists_as_they_were) {
    Corpus c("* ( (S A/a A/a A/b) )\n( (S A/a A/a B/b) )");
    const auto lists = [] {
        return contexts(term("A")->links.first()->parents) + ", " +
               contexts(word("a")->links.first()->parents);
    };
    const std::string before = lists();
    EXPECT_EQ(before, "S|- 3/3:1(1) S|- 2/3:2(1) S|- 1/3:2(1), S|- 2/3:2(1) S|- 1/3:2(1)");
    TreeCheckedScope scope(c.tree(1));
    delete_parent(c.at("1", 1));
    EXPECT_EQ(lists(), "S|- 3/3:1(1) S|- 2/3:2(1) S|- 1/3:1(1), S|- 2/3:2(1) S|- 1/3:1(1)");
    parent(c.at("1", 1));
    EXPECT_EQ(lists(), before);
}

TEST(parents, a_category_knows_its_checked_contexts_once_asked_and_keeps_knowing) {
    Corpus c("* ( (S (NP|x NN/cats) (NP NN/dogs)) )\n( (VP (NP NN/cats)) )");
    LabelEntry *np = nonterm("NP");
    const Context first = context_of(c.at("1")), unchecked = context_of(c.at("1", 1));
    const auto occurs_in = [np](const Context &context) {
        const TagCounts *tags = tags_above(np, context.path());
        return tags && tags->contains(context.sem);
    };
    EXPECT_TRUE(occurs_in(first));
    EXPECT_FALSE(occurs_in(unchecked));
    set_checked(1, true);
    EXPECT_TRUE(occurs_in(unchecked));
    c.tag("1", "y");
    EXPECT_TRUE(occurs_in(first)) << "whatever the tag";
    c.category("1", "PP");
    EXPECT_FALSE(occurs_in(first));
}

TEST(parents, the_tags_of_one_path_are_those_of_a_walk_through_the_list) {
    std::string text;
    for (int tree = 0; tree < 40; ++tree)
        text += (tree % 3 ? "*\n( (S|t" : "( (S|t") + std::to_string(tree % 11) + " A/a A/a) )\n";
    Corpus c(text);
    Parents &parents = term("A")->links.first()->parents;
    const auto by_walking = [&](const Path &path) {
        PathTags tags;
        for (const ParentRecord *r = parents.first(); r; r = r->next)
            if (r->checked_count && r->key().path() == path) {
                tags.tags.push_back({r->sem, r->checked_count});
                tags.total += r->checked_count;
            }
        return tags;
    };
    const Path path{intern("S"), 1, 2};
    PathTags room;
    EXPECT_EQ(parents.tags_of(path, room), by_walking(path));
    EXPECT_EQ(by_walking(path).tags.size(), 11u);
    for (int tree = 0; tree < 30; tree += 2) {
        c.tag(".", tree % 4 ? "new" : "t3", tree);
        set_checked(tree + 1, tree % 4 == 0);
        EXPECT_EQ(parents.tags_of(path, room), by_walking(path));
    }
}

}  // namespace
}  // namespace brindle::test
