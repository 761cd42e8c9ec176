// The ranked list against the literal procedure: a vector that is bubble-sorted after every change.
#include "stats/ranked_list.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace brindle::test {
namespace {

struct Item : Ranked<Item> {
    int number = 0;
    Item *next = nullptr;
    Item *prev = nullptr;

    using Key = int;
    Key key() const { return number; }
    void set_key(Key k) { number = k; }
    static std::uint64_t hash(Key k) { return static_cast<std::uint64_t>(k); }
};

struct Plain {
    int number, count, checked_count;
    bool operator==(const Plain &) const = default;
};

void PrintTo(const Plain &p, std::ostream *out) {
    *out << p.number << ':' << p.count << '(' << p.checked_count << ')';
}

void bubble_sort(std::vector<Plain> &list) {
    for (bool exchanged = true; exchanged;) {
        exchanged = false;
        for (std::size_t i = 1; i < list.size(); ++i)
            if (list[i].checked_count > list[i - 1].checked_count) {
                std::swap(list[i], list[i - 1]);
                exchanged = true;
            }
    }
}

// One random operation on a random key, done to both.
class Twins {
  public:
    // The order is asked for after one in so many steps.
    Twins(unsigned seed, int keys, int chance_of_question)
        : random_(seed), keys_(keys), chance_of_question_(chance_of_question) {}

    void step() {
        const int number = below(keys_);
        Item *item = list_.find(number);
        const auto plain =
            std::find_if(plain_.begin(), plain_.end(), [&](const Plain &p) { return p.number == number; });
        ASSERT_EQ(item != nullptr, plain != plain_.end());
        const bool checked = below(2) == 0;
        const int operation = below(8);
        if (!item || operation < 3)
            add(number, checked);
        else if (operation < 5)
            take(item, plain);
        else
            check(item, plain);
        bubble_sort(plain_);
        ASSERT_EQ(list_.fault(), nullptr);
        if (below(chance_of_question_) == 0) {
            ASSERT_EQ(contents(), plain_);
        }
    }

    void take_all() {
        while (list_.first()) take(list_.first(), plain_.begin());
        EXPECT_TRUE(plain_.empty());
    }

    ~Twins() { list_.clear(pool_); }

  private:
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    void add(int number, bool checked) {
        list_.count_one_more(number, checked, pool_);
        for (Plain &p : plain_)
            if (p.number == number) {
                ++p.count;
                p.checked_count += checked;
                return;
            }
        plain_.push_back({number, 1, checked});
    }

    void take(Item *item, std::vector<Plain>::iterator plain) {
        const bool checked = item->checked_count > 0 && (item->checked_count == item->count || below(2));
        plain->checked_count -= checked;
        if (--plain->count == 0) plain_.erase(plain);
        list_.count_one_less(item, checked, pool_);
    }

    void check(Item *item, std::vector<Plain>::iterator plain) {
        if (item->checked_count < item->count) {
            list_.raise(item);
            ++plain->checked_count;
        } else {
            list_.lower(item);
            --plain->checked_count;
        }
    }

    std::vector<Plain> contents() const {
        std::vector<Plain> result;
        for (const Item *i = list_.first(); i; i = i->next)
            result.push_back({i->number, i->count, i->checked_count});
        return result;
    }

    std::mt19937 random_;
    int keys_;
    int chance_of_question_;
    Pool<Item> pool_;
    RankedList<Item> list_;
    std::vector<Plain> plain_;
};

TEST(ranked_list, is_what_a_bubble_sort_after_every_change_gives) {
    for (const int keys : {1, 2, 3, 5, 9, 30, 100})
        for (const int chance : {1, 20, 300})
            for (unsigned seed = 0; seed < 5; ++seed) {
                Twins twins(seed, keys, chance);
                for (int i = 0; i < 600; ++i) {
                    ASSERT_NO_FATAL_FAILURE(twins.step()) << keys << " keys, seed " << seed << ", step " << i;
                }
                twins.take_all();
            }
}

}  // namespace
}  // namespace brindle::test
