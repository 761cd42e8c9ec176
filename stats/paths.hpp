#pragma once
// Two indexes of mother contexts that the proposal asks. Both know the contexts of checked trees alone, are
// made for a unit, a category or a word at the first question about it, and are kept by every later change.
#include <cstdint>

#include "stats/contexts.hpp"

namespace brindle {

// A place under some mother of a category, whatever the mother's tag.
struct Path {
    const Label *syn;         // the mother's category
    std::int32_t dtr_nr;      // 1-based position among the daughters
    std::int32_t nr_of_dtrs;  // number of the mother's daughters
    bool operator==(const Path &) const = default;
};

struct PathHash {
    std::size_t operator()(const Path &path) const {
        return mix_hash(reinterpret_cast<std::uintptr_t>(path.syn),
                        std::uint64_t{static_cast<std::uint32_t>(path.dtr_nr)} << 32 |
                            static_cast<std::uint32_t>(path.nr_of_dtrs));
    }
};

// The contexts of one unit on one path, in the order in which they stand in the unit's list.
struct PathContexts {
    std::uint32_t first = 0;  // a context's number; 0: there is none
    std::int32_t total = 0;   // the sum of their checked counts
};

// Index by unit and path: ranked lists, so that a change takes constant time.
class PathLists {
  public:
    PathLists(const Units &units, Contexts &contexts, RankGroups &groups)
        : units_(units), contexts_(contexts), groups_(groups) {}

    // Takes all contexts of a unit in. REQUIRES: it knows none of them.
    void add(const Unit &unit);
    // The checked count of a context of such a unit has gone up (by = 1) or down (-1).
    void moved(std::uint32_t context, int by);

    PathContexts find(std::uint32_t unit, const Path &path) const;
    // The next context of the same unit and path, or 0.
    std::uint32_t next(std::uint32_t context) const { return hooks_[context].rank.next; }
    // The sum of the checked counts of the context's unit and path.
    std::int32_t total_beside(std::uint32_t context) const { return lists_[hooks_[context].list].total; }

    // For the verifier: the context before, or 0; what is wrong with the list of a path (null: nothing).
    std::uint32_t previous(std::uint32_t context) const { return hooks_[context].rank.prev; }
    const char *fault(std::uint32_t unit, const Path &path) const;

    std::size_t bytes() const { return hooks_.bytes() + lists_.bytes() + index_.bytes(); }

  private:
    struct Hook {
        RankHook rank;
        std::uint32_t list;
    };
    struct List {
        std::uint32_t unit;
        Path path;
        RankedList contexts;
        std::int32_t total;
    };
    struct Elements {
        GrowingArray<Hook> &hooks;
        const Contexts &contexts;
        RankHook &hook(std::uint32_t number) const { return hooks[number].rank; }
        int checked_count(std::uint32_t number) const { return contexts[number].checked_count; }
    };

    Ranking<Elements> ranking() const { return {Elements{hooks_, contexts_}, groups_}; }
    Path path_of(const Context &c) const { return {units_[c.mother].syn, c.dtr_nr, c.nr_of_dtrs}; }
    std::uint32_t number_of(std::uint32_t unit, const Path &path, std::uint32_t hash) const;
    std::uint32_t list_for(const Context &c);
    void append(std::uint32_t context);

    const Units &units_;
    Contexts &contexts_;
    RankGroups &groups_;
    mutable GrowingArray<Hook> hooks_{Pages::huge};  // by the context's number
    GrowingArray<List> lists_{Pages::huge};
    HashIndex index_;
};

// Index by mother: which units of a category, or of a word, stand at a place below a mother; and which
// mothers a category stands below at all. Categories and words are its owners, by numbers that it gives them.
class ContextsBelow {
  public:
    explicit ContextsBelow(const Units &units, const Contexts &contexts)
        : units_(units), contexts_(contexts) {}

    // Contexts of one owner below one mother at one place, in no order.
    struct Below {
        std::uint32_t first = 0;  // a context's number; 0: there is none
        std::uint32_t size = 0;
    };
    // The mothers of one category above an owner at one place, in no order.
    struct Above {
        std::uint32_t first = 0;  // for mother_of and next_mother; 0: there is none
        std::uint32_t size = 0;
    };

    std::uint32_t make_owner() { return ++owners_; }
    // A context has come into checked trees, or gone out of them.
    void add(std::uint32_t owner, std::uint32_t context);
    void remove(std::uint32_t context);

    Below below(std::uint32_t owner, std::uint32_t mother, std::int32_t dtr_nr,
                std::int32_t nr_of_dtrs) const;
    std::uint32_t next(std::uint32_t context) const { return hooks_[context].next; }
    Above above(std::uint32_t owner, const Path &path) const;
    std::uint32_t mother_of(std::uint32_t group) const { return groups_[group].mother; }
    std::uint32_t next_mother(std::uint32_t group) const { return groups_[group].next; }

    // For the verifier: whether the context stands in the group of its place below its mother; what is wrong
    // with the groups of an owner that has so many contexts (null: nothing).
    bool knows(std::uint32_t owner, std::uint32_t context) const;
    const char *fault(std::uint32_t owner, std::uint64_t nr_of_contexts) const;

    std::size_t bytes() const {
        return hooks_.bytes() + groups_.bytes() + index_.bytes() + paths_.bytes() + path_index_.bytes();
    }

  private:
    struct Hook {
        std::uint32_t next, prev;
        std::uint32_t group;
    };
    // A group lives as long as it has contexts.
    struct Group {
        std::uint32_t owner, mother;
        std::int32_t dtr_nr, nr_of_dtrs;
        std::uint32_t first, size;
        std::uint32_t next, prev;  // on its path
        std::uint32_t path;
    };
    struct OwnerPath {
        std::uint32_t owner;
        Path path;
        std::uint32_t first, size;
    };

    std::uint32_t group_at(std::uint32_t hash, std::uint32_t owner, std::uint32_t mother, std::int32_t dtr_nr,
                           std::int32_t nr_of_dtrs) const;
    std::uint32_t make_group(std::uint32_t hash, std::uint32_t owner, const Context &c);
    void release_group(std::uint32_t number);
    std::uint32_t path_at(std::uint32_t hash, std::uint32_t owner, const Path &path) const;
    std::uint32_t path_for(std::uint32_t owner, const Path &path);
    Path path_of(const Group &group) const {
        return {units_[group.mother].syn, group.dtr_nr, group.nr_of_dtrs};
    }
    std::uint32_t length_of(const Group &group) const;

    const Units &units_;
    const Contexts &contexts_;
    GrowingArray<Hook> hooks_{Pages::huge};  // by the context's number
    GrowingArray<Group> groups_{Pages::huge};
    HashIndex index_;
    GrowingArray<OwnerPath> paths_{Pages::small};
    HashIndex path_index_;
    std::uint32_t free_ = 0;  // groups, linked by next
    std::uint32_t owners_ = 0;
};

}  // namespace brindle
