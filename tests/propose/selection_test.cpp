#include "propose/selection.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

using Trees = std::vector<int>;

TEST(selection, takes_the_trees_of_its_type_in_its_range) {
    const TestCorpus c("* ( (S) )\n( (S) )\n* ( (S) )\n( (S) )\n* ( (S) )\n");
    EXPECT_EQ(select_trees(c, {TreeTypes::checked, 1, 5}), (Trees{0, 2, 4}));
    EXPECT_EQ(select_trees(c, {TreeTypes::unchecked, 2, 5}), (Trees{1, 3}));
    EXPECT_EQ(select_trees(c, {TreeTypes::both, 2, 4}), (Trees{1, 2, 3}));
    EXPECT_EQ(select_trees(c, {TreeTypes::both, 5, 5}), (Trees{4}));
    EXPECT_EQ(select_trees(c, {TreeTypes::both, 5, 4}), Trees());
    EXPECT_EQ(nr_of_appropriate_trees(c, {TreeTypes::unchecked, 1, 1}), 0);
    EXPECT_EQ(nr_of_appropriate_trees(c, {TreeTypes::both, 2, 5}), 4);
}

TEST(selection, at_random_is_a_part_of_the_covered_trees_and_the_same_for_a_seed) {
    const TestCorpus c("* ( (S) )\n( (S) )\n* ( (S) )\n( (S) )\n* ( (S) )\n");
    const SelectionChoice choice{TreeTypes::both, 1, 5, true, 3, 1};
    const Trees trees = select_trees(c, choice);
    EXPECT_EQ(trees.size(), 3u);
    EXPECT_EQ(select_trees(c, choice), trees);
    SelectionChoice all = choice;
    all.size = 9;
    Trees sorted = select_trees(c, all);
    EXPECT_TRUE(std::equal(trees.begin(), trees.end(), sorted.begin())) << "the first of the shuffled list";
    std::ranges::sort(sorted);
    EXPECT_EQ(sorted, (Trees{0, 1, 2, 3, 4}));
    all.size = 0;
    EXPECT_EQ(select_trees(c, all), Trees());
}

TEST(selection, shuffles_by_2n_swaps_of_the_librarys_generator) {
    Trees numbers(20), expected(20);
    std::iota(numbers.begin(), numbers.end(), 0);
    expected = numbers;
    shake_numbers(numbers, 7);
    std::srand(7);
    for (int i = 0; i < 40; ++i) {
        const auto a = static_cast<std::size_t>(std::rand() % 20);
        const auto b = static_cast<std::size_t>(std::rand() % 20);
        std::swap(expected[a], expected[b]);
    }
    EXPECT_EQ(numbers, expected);
    shake_numbers({}, 1);
}

}  // namespace
}  // namespace brindle::test
