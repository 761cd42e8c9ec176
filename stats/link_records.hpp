#pragma once
// The elements of the co-occurrence lists.
#include <cstdint>

#include "stats/ranked_list.hpp"

namespace brindle {

struct LabelEntry;
struct LexEntry;

// Mixes a number or a reference into a running hash.
inline std::size_t mix_hash(std::size_t h, std::size_t value) {
    h = (h ^ value) * 0x9e3779b97f4a7c15u;
    return h ^ (h >> 29);
}
inline std::size_t mix_hash(std::size_t h, const void *reference) {
    return mix_hash(h, reinterpret_cast<std::uintptr_t>(reference) >> 4);
}

// A mother context: under which mother, and where among its daughters.
struct Context {
    LabelEntry *syn;          // the mother's category (NONTERM)
    LabelEntry *sem;          // the mother's tag
    std::int32_t dtr_nr;      // 1-based position among the daughters
    std::int32_t nr_of_dtrs;  // number of the mother's daughters
    bool operator==(const Context &) const = default;
};

// How often a (category, tag) pair or a (word, category, tag) triple occurs in one mother context.
struct ParentRecord {
    LabelEntry *syn = nullptr;
    LabelEntry *sem = nullptr;
    std::int32_t dtr_nr = 0;
    std::int32_t nr_of_dtrs = 0;
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    ParentRecord *next = nullptr;
    ParentRecord *prev = nullptr;

    using Key = Context;
    Key key() const { return {syn, sem, dtr_nr, nr_of_dtrs}; }
    void set_key(const Key &k) { syn = k.syn, sem = k.sem, dtr_nr = k.dtr_nr, nr_of_dtrs = k.nr_of_dtrs; }
    static std::size_t hash(const Key &k) {
        const auto place =
            static_cast<std::size_t>(k.dtr_nr) << 32 | static_cast<std::uint32_t>(k.nr_of_dtrs);
        return mix_hash(mix_hash(mix_hash(0, k.syn), k.sem), place);
    }
};
using Parents = RankedList<ParentRecord>;

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
