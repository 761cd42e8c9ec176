#pragma once
// The elements of the co-occurrence lists.
#include <cstdint>

#include "stats/parents.hpp"
#include "stats/ranked_list.hpp"

namespace brindle {

struct LabelEntry;
struct LexEntry;

// In a category's list: a tag; in a tag's list: a category.
struct alignas(64) LabelLink : Ranked<LabelLink> {
    LabelEntry *label = nullptr;
    Label *name = nullptr;      // its name
    LabelLink *twin = nullptr;  // the link of the same two labels in the other's list
    Parents parents;            // used only in a category's list
    LabelLink *next = nullptr;
    LabelLink *prev = nullptr;

    using Key = LabelEntry *;
    Key key() const { return label; }
    void set_key(Key k) { label = k; }
    static std::uint64_t hash(Key k) { return mix_hash(k, nullptr); }
};
using LabelLinks = RankedList<LabelLink>;

// In a word's list: a (category, tag) pair.
struct alignas(64) LexLink : Ranked<LexLink> {
    LabelEntry *syn = nullptr;
    LabelEntry *sem = nullptr;
    LabelLink *link = nullptr;  // the category's link to the tag
    Parents parents;
    LexLink *next = nullptr;
    LexLink *prev = nullptr;

    struct Key {
        LabelEntry *syn;
        LabelEntry *sem;
        bool operator==(const Key &) const = default;
    };
    Key key() const { return {syn, sem}; }
    void set_key(const Key &k) { syn = k.syn, sem = k.sem; }
    static std::uint64_t hash(const Key &k) { return mix_hash(k.syn, k.sem); }
};
using LexLinks = RankedList<LexLink>;

}  // namespace brindle
