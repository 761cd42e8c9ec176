#pragma once
// Mother contexts: the ranked list that hangs on a link, and the two indexes of it that the proposal asks.
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <tsl/robin_map.h>

#include "stats/ranked_list.hpp"

namespace brindle {

struct Label;
struct LabelEntry;

// A hash of two or three references and a number. The products do not wait for each other.
inline std::uint64_t mix_hash(const void *a, const void *b, std::uint64_t number = 0) {
    const std::uint64_t h = reinterpret_cast<std::uintptr_t>(a) * 0xa0761d6478bd642fu +
                            reinterpret_cast<std::uintptr_t>(b) * 0xe7037ed1a0b428dbu +
                            number * 0x8ebc6af09c88c6e3u;
    return h ^ (h >> 32);
}

// A place under some mother of a category, whatever the mother's tag.
struct Path {
    Label *syn;               // the mother's category
    std::int32_t dtr_nr;      // 1-based position among the daughters
    std::int32_t nr_of_dtrs;  // number of the mother's daughters
    bool operator==(const Path &) const = default;
    std::uint64_t place() const {
        return static_cast<std::uint64_t>(dtr_nr) << 32 | static_cast<std::uint32_t>(nr_of_dtrs);
    }
    std::uint64_t hash() const { return mix_hash(syn, nullptr, place()); }
};

// A mother context: under which mother, and where among its daughters. It names labels, not their entries:
// so it can be read off the mother alone.
struct Context {
    Label *syn;               // the mother's category
    Label *sem;               // the mother's tag; null: it has none
    std::int32_t dtr_nr;      // 1-based position among the daughters
    std::int32_t nr_of_dtrs;  // number of the mother's daughters
    bool operator==(const Context &) const = default;
    Path path() const { return {syn, dtr_nr, nr_of_dtrs}; }
    std::uint64_t hash() const { return mix_hash(syn, sem, path().place()); }
};

struct HashOf {
    template <class T>
    std::size_t operator()(const T &key) const {
        return key.hash();
    }
};

// How often a (category, tag) pair or a (word, category, tag) triple occurs in one mother context.
struct alignas(64) ParentRecord : Ranked<ParentRecord> {
    Label *syn = nullptr;
    Label *sem = nullptr;
    std::int32_t dtr_nr = 0;
    std::int32_t nr_of_dtrs = 0;
    ParentRecord *next = nullptr;
    ParentRecord *prev = nullptr;

    using Key = Context;
    Key key() const { return {syn, sem, dtr_nr, nr_of_dtrs}; }
    void set_key(const Key &k) { syn = k.syn, sem = k.sem, dtr_nr = k.dtr_nr, nr_of_dtrs = k.nr_of_dtrs; }
    static std::uint64_t hash(const Key &k) { return k.hash(); }
};

// The mothers' tags that one path occurs with in checked trees, in the order of their records in the list.
struct PathTags {
    struct Tag {
        Label *sem;
        std::int32_t checked_count;  // at least 1
        bool operator==(const Tag &) const = default;
    };
    std::vector<Tag> tags;
    std::int32_t total = 0;  // the sum of their checked counts
    bool operator==(const PathTags &) const = default;
};

// The ranked list of mother contexts of one link. A long one can be asked for one path at the cost of that
// path alone: the first such question builds an index, which every later change keeps.
class Parents {
  public:
    // As in RankedList.
    ParentRecord *first() const { return list_.first(); }
    template <class Function>
    void for_each(Function &&function) const {
        list_.for_each(function);
    }
    ParentRecord *find(const Context &context) const { return list_.find(context); }
    ParentRecord *find(const Context &context, std::uint32_t hash) const { return list_.find(context, hash); }
    std::uint32_t hash(const Context &context) const { return list_.hash(context); }
    void prefetch(std::uint32_t hash) const { list_.prefetch(hash); }
    void prefetch_element(std::uint32_t hash) const { list_.prefetch_element(hash); }
    static void prefetch_slot(std::uint32_t hash) { RankedList<ParentRecord>::prefetch_slot(hash); }
    ParentRecord *guess(std::uint32_t hash) const { return list_.guess(hash); }
    void prefetch_neighbours(const Context &context, std::uint32_t hash) const {
        list_.prefetch_neighbours(context, hash);
    }
    ParentRecord *add(const Context &context, Pool<ParentRecord> &pool) { return list_.add(context, pool); }
    void count_one_more(ParentRecord *record, bool checked);
    void count_one_less(ParentRecord *record, bool checked, Pool<ParentRecord> &pool);
    void raise(ParentRecord *record);
    void lower(ParentRecord *record);
    void clear(Pool<ParentRecord> &pool);

    // Forgets the indexes of all lists at once; before RankedList::forget_all.
    static void forget_all_paths() { all_paths_.clear(); }

    // As in RankedList, and whether the index of paths agrees with the list.
    const char *fault() const;

    // What the path occurs with in checked trees: `room`, filled, or a part of the index, good until the next
    // change.
    const PathTags &tags_of(const Path &path, PathTags &room);

  private:
    using Paths = tsl::robin_map<Path, PathTags, HashOf>;
    static constexpr std::int32_t longest_without_paths = 8;
    Paths made_paths() const;
    void drop_paths();

    // The indexes, which no pool can hold, with their lists.
    inline static std::unordered_map<const Parents *, Paths> all_paths_;

    RankedList<ParentRecord> list_;
    Paths *paths_ = nullptr;  // only of a list that is ordered
};

// The mothers' tags that the nodes of one category, whatever their own tags, occur with on each path in
// checked trees, and how often.
using TagCounts = tsl::robin_map<Label *, std::int32_t>;
using CategoryContexts = tsl::robin_map<Path, TagCounts, HashOf>;

}  // namespace brindle
