// Ranked lists against the literal procedure: a vector that is sorted stably after every change.
#include "stats/ranked_list.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/random_corpus.hpp"

namespace brindle::test {
namespace {

struct Item {
    int checked_count = 0;
    int list = -1;  // which list it is in; -1: none
    RankHook by_rank = {};
};

struct Items {
    std::vector<Item> &items;
    RankHook &hook(std::uint32_t number) const { return items[number].by_rank; }
    int checked_count(std::uint32_t number) const { return items[number].checked_count; }
};

// Two lists that share their groups, and their literal twins.
class Twins {
  public:
    Twins(unsigned seed, int items) : random_(seed), items_(static_cast<std::size_t>(items) + 1) {}

    void step() {
        const auto number =
            static_cast<std::uint32_t>(1 + random_.below(static_cast<int>(items_.size()) - 1));
        Item &item = items_[number];
        if (item.list < 0) {
            item.list = random_.below(2);
            const auto &plain = plain_[item.list];
            item.checked_count = plain.empty() ? random_.below(3) : items_[plain.back()].checked_count;
            plain_[item.list].push_back(number);
            ranking_.append(lists_[item.list], number);
        } else if (const int kind = random_.below(10); kind == 0) {
            std::erase(plain_[item.list], number);
            ranking_.remove(lists_[item.list], number);
            item.list = -1;
        } else if (kind < 6) {
            ++item.checked_count;
            ranking_.raised(lists_[item.list], number);
        } else if (item.checked_count > 0) {
            --item.checked_count;
            ranking_.lowered(lists_[item.list], number);
        }
        for (int l : {0, 1}) compare(l);
    }

  private:
    void compare(int l) {
        std::ranges::stable_sort(plain_[l], std::greater(), [&](auto n) { return items_[n].checked_count; });
        std::vector<std::uint32_t> found;
        for (std::uint32_t n = lists_[l].first; n; n = items_[n].by_rank.next) found.push_back(n);
        ASSERT_EQ(found, plain_[l]);
        ASSERT_EQ(ranking_.fault(lists_[l]), nullptr);
    }

    Random random_;
    std::vector<Item> items_;
    RankGroups groups_;
    Ranking<Items> ranking_{{items_}, groups_};
    RankedList lists_[2];
    std::vector<std::uint32_t> plain_[2];
};

TEST(ranked_list, is_what_a_stable_sort_after_every_change_gives) {
    for (const int items : {1, 2, 3, 5, 9, 30, 100})
        for (unsigned seed = 0; seed < 5; ++seed) {
            Twins twins(seed, items);
            for (int i = 0; i < 600; ++i)
                ASSERT_NO_FATAL_FAILURE(twins.step()) << items << " items, seed " << seed << ", step " << i;
        }
}

}  // namespace
}  // namespace brindle::test
