// The verifier notices what is wrong: each test damages one thing, looks, and mends it.
#include "stats/verify.hpp"

#include <gtest/gtest.h>

#include <utility>

#include "support/corpus.hpp"

namespace brindle::test {
namespace {

// What verify_tables says while the value is another one.
template <class T, class Value>
std::string with(T &place, Value value) {
    const T before = std::exchange(place, static_cast<T>(value));
    std::string difference = verify_tables();
    place = before;
    return difference;
}

constexpr const char *two_trees = "* ( (S (NP|x NN|y/cats NN/dogs) (VP VB/run)) )\n( (S (NP NN/cats)) )";

TEST(verify, a_wrong_count_anywhere) {
    Corpus c(two_trees);
    LabelLink *link = nonterm("NP")->links.first();
    ParentRecord *record = term("NN")->links.first()->parents.first();
    LexLink *wordlink = word("cats")->links.first();
    for (std::int32_t *count : {&sem("x")->count, &nonterm("S")->checked_count, &word("cats")->count,
                                &link->count, &link->checked_count, &record->count, &record->checked_count,
                                &wordlink->count, &wordlink->parents.first()->count})
        EXPECT_NE(with(*count, *count + 1), "");
    EXPECT_EQ(
        with(word("cats")->count, 7),
        "word: kind 5, category none, tag none, word \"cats\", below none none at 0 of 0: 7 (1 checked), "
        "the trees have 2 (1)");
}

TEST(verify, nodes_that_the_tables_do_not_know) {
    Corpus c(two_trees);
    Node *n = c.at("1.1");
    EXPECT_NE(with(n->sem, nullptr), "");
    EXPECT_NE(with(n->syn, intern("VB")), "");
    EXPECT_NE(with(n->lex, intern("dogs")), "");
    EXPECT_NE(with(n->undo_sem, intern("x")), "");
    EXPECT_NE(with(n->position, 2), "");
    EXPECT_NE(with(c.at("1")->nr_of_dtrs, 1), "");
    EXPECT_NE(with(c.tree(1).checked, true), "");
}

TEST(verify, broken_chains_lists_and_references) {
    Corpus c(two_trees);
    EXPECT_NE(with(intern("x")->sem, nullptr), "");
    EXPECT_NE(with(intern("cats")->word, nullptr), "");
    EXPECT_NE(with(table[intern("NN")->bucket].last, nullptr), "");
    LabelLink *link = nonterm("NP")->links.first();
    EXPECT_NE(with(link->next, nullptr), "");
    EXPECT_NE(with(link->next->prev, nullptr), "");
    EXPECT_NE(with(link->label, sem("y")), "");
    EXPECT_NE(with(sem("x")->next, sem("x")->next ? nullptr : sem("y")), "");
    std::swap(link->checked_count, link->next->checked_count);
    EXPECT_NE(verify_tables(), "") << "out of order";
    std::swap(link->checked_count, link->next->checked_count);
}

TEST(verify, contexts_of_a_category_that_are_asked_for) {
    Corpus c(two_trees);
    LabelEntry *np = nonterm("NP");
    const Context context = context_of(c.at("1"));
    ASSERT_TRUE(tags_above(np, context.path()));
    EXPECT_EQ(verify_tables(), "");
    TagCounts &tags = (*np->contexts)[context.path()];
    ++tags[context.sem];
    EXPECT_NE(verify_tables(), "");
    tags.erase(context.sem);
    EXPECT_NE(verify_tables(), "");
    tags[context.sem] = 1;
}

}  // namespace
}  // namespace brindle::test
