// The verifier notices what is wrong: each test damages one thing, looks, and mends it.
#include "stats/verify.hpp"

#include <gtest/gtest.h>

#include <utility>

#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

class Verify : public testing::Test {
  protected:
    // What `verify` says while the value is another one.
    template <class T, class Value>
    std::string with(T &place, Value value) {
        const T before = std::exchange(place, static_cast<T>(value));
        std::string difference = verify(c);
        place = before;
        return difference;
    }
    Unit *unit(std::string_view path) { return c.at(path)->unit(); }
    Context &context(const Unit *unit) { return c.statistics->contexts[unit->contexts.first]; }

    TestCorpus c{"* ( (S (NP|x NN|y/cats NN/dogs) (VP VB/run) (NP)) )\n( (S (NP NN/cats)) )"};
};

TEST_F(Verify, a_wrong_count_anywhere) {
    Unit *const cats = unit("1.1"), *const np = unit("1");
    for (std::int32_t *count :
         {&c.sem("x")->count, &c.sem("x")->checked_count, &c.nonterm("S")->checked_count,
          &c.word("cats")->count, &np->count, &np->checked_count, &cats->count, &cats->pair->count,
          &context(cats).count, &context(cats).checked_count, &context(cats->pair).count,
          &c.nonterm("NP")->pairs.length})
        EXPECT_NE(with(*count, *count + 1), "");
    EXPECT_EQ(
        with(c.word("cats")->count, 7),
        "word: kind 5, category none, tag none, word \"cats\", below none none at 0 of 0: 7 (1 checked), "
        "the trees have 2 (1)");
}

TEST_F(Verify, nodes_that_the_statistics_do_not_know) {
    Node *const n = c.at("1.1");
    Unit *const own = n->unit();
    n->set_unit(unit("1.2"));
    EXPECT_NE(verify(c), "") << "another unit";
    n->set_unit(own);
    n->set_position(2);
    EXPECT_NE(verify(c), "") << "another position";
    n->set_position(1);
    n->set_tree(1);
    EXPECT_NE(verify(c), "") << "another tree";
    n->set_tree(0);
    c.at("1")->set_nr_of_dtrs(1);
    EXPECT_NE(verify(c), "") << "another number of daughters";
    c.at("1")->set_nr_of_dtrs(2);
    EXPECT_NE(with(c.undo_for_change(n).undo_sem, c.labels.intern("x")), "");
    EXPECT_NE(with(c.tree(1).checked, true), "");
}

TEST_F(Verify, broken_chains_lists_and_references) {
    Label *const x = c.labels.intern("x"), *const nn = c.labels.intern("NN"),
                 *const cats = c.labels.intern("cats");
    EXPECT_NE(with(x->sem, nullptr), "");
    EXPECT_NE(with(cats->word, nullptr), "");
    EXPECT_NE(with(c.statistics->table[nn->bucket].last, nullptr), "");
    EXPECT_NE(with(c.statistics->table[x->bucket].first, nullptr), "");
    Unit *const u = c.statistics->first_of(c.nonterm("NP")->pairs);
    EXPECT_NE(with(u->by_owner.next, 0), "");
    EXPECT_NE(with(c.statistics->next_of_owner(u)->by_owner.prev, 0), "");
    EXPECT_NE(with(u->by_owner.group, u->by_owner.group + 1), "");
    EXPECT_NE(with(c.sem("")->pairs.first, 0), "");
    EXPECT_NE(with(c.sem("x")->pairs.first, c.sem("y")->pairs.first), "");
    EXPECT_NE(with(unit("1.1")->pair, unit("1.2")->pair), "");
    EXPECT_NE(with(context(unit("1.1")).mother, c.units.number_of(unit("2"))), "");
    EXPECT_NE(with(context(unit("1.1")).dtr_nr, 2), "");
}

}  // namespace
}  // namespace brindle::test
