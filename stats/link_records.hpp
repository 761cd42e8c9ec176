#pragma once
// The elements of the co-occurrence lists.
#include <cstdint>

#include "stats/parents.hpp"
#include "stats/ranked_list.hpp"

namespace brindle {

struct LabelEntry;
struct LexEntry;

// In a category's list: a tag; in a tag's list: a category.
struct LabelLink {
    LabelEntry *label = nullptr;
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    LabelLink *next = nullptr;
    LabelLink *prev = nullptr;
    Parents parents;  // used only in a category's list

    using Key = LabelEntry *;
    Key key() const { return label; }
    void set_key(Key k) { label = k; }
    static std::size_t hash(Key k) { return mix_hash(0, k); }
};
using LabelLinks = RankedList<LabelLink>;

// In a word's list: a (category, tag) pair.
struct LexLink {
    LabelEntry *syn = nullptr;
    LabelEntry *sem = nullptr;
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    LexLink *next = nullptr;
    LexLink *prev = nullptr;
    Parents parents;

    struct Key {
        LabelEntry *syn;
        LabelEntry *sem;
        bool operator==(const Key &) const = default;
    };
    Key key() const { return {syn, sem}; }
    void set_key(const Key &k) { syn = k.syn, sem = k.sem; }
    static std::size_t hash(const Key &k) { return mix_hash(mix_hash(0, k.syn), k.sem); }
};
using LexLinks = RankedList<LexLink>;

}  // namespace brindle
