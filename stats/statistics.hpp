#pragma once
// The statistics of a corpus: every label once, with its counts, and how labels occur together.
//
// Two tables of 1999 buckets each; a chain lists its entries in the order of their first storing. They are
// the order of whatever lists labels; the way from a node to its entries leads through its unit and its
// labels and never through the chains.
//
// What occurs with what is counted at units: a pair stands in the list of its category and in that of its
// tag, a unit with a word in that of its word, a mother context in that of its unit.
#include <array>
#include <cstdint>
#include <string_view>

#include "base/pool.hpp"
#include "model/corpus.hpp"
#include "stats/contexts.hpp"
#include "stats/paths.hpp"

namespace brindle {

// An entry of the label table: a semantic tag (or the absence of one), or a category of one kind.
struct LabelEntry {
    Label *name = nullptr;           // null only for the SEM entry that counts nodes without a tag
    std::int32_t count = 0;          // nodes with the label, and for tags the references of undo tags
    std::int32_t checked_count = 0;  // nodes with it in checked trees
    LabelKind kind = LabelKind::SEM;
    LabelEntry *next = nullptr;  // in the bucket's chain
    LabelEntry *prev = nullptr;
    RankedList pairs;         // of a category: the tags it occurs with; of a tag: the categories
    std::uint32_t owner = 0;  // of a category: its number in ContextsBelow; 0: not asked for yet
};

// An entry of the word table.
struct LexEntry {
    Label *name = nullptr;
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    LexEntry *next = nullptr;
    LexEntry *prev = nullptr;
    RankedList units;         // the (category, tag) pairs that it occurs with
    std::uint32_t owner = 0;  // as that of a category
};

// One bucket: a chain with both ends, so that entries come and go in constant time.
template <class Entry>
struct Bucket {
    Entry *first = nullptr;
    Entry *last = nullptr;
};

// Ends the program with "Fault in hashtable!?": the statistics lack what the trees have.
[[noreturn]] void fault_in_hashtable();

class Statistics {
  public:
    explicit Statistics(Corpus &corpus) : corpus_(corpus) {}
    Statistics(const Statistics &) = delete;
    Statistics &operator=(const Statistics &) = delete;

    std::array<Bucket<LabelEntry>, nr_of_buckets> table;
    std::array<Bucket<LexEntry>, nr_of_buckets> lex_table;

    // The entry of a label, or null; null or "" with kind SEM: that of "no tag".
    LabelEntry *find(const Label *name, LabelKind kind) const;
    LabelEntry *find(std::string_view name, LabelKind kind) const;
    LexEntry *find_word(std::string_view word) const;
    // The entries of a node's or pair's labels. They are there as long as the unit's count is not 0.
    LabelEntry *category_entry(const Unit *unit) const { return unit->syn->entry(unit->category_kind()); }
    LabelEntry *tag_entry(const Unit *unit) const { return unit->sem ? unit->sem->sem : no_tag_; }
    LexEntry *word_entry(const Unit *unit) const { return unit->lex->word; }

    // Units and contexts by number, for walks over lists: for (auto u = list.first; u; u = next(u)).
    Unit &unit(std::uint32_t number) { return corpus_.units[number]; }
    const Unit &unit(std::uint32_t number) const { return corpus_.units[number]; }
    std::uint32_t number_of(const Unit *unit) const { return corpus_.units.number_of(unit); }
    // The next one in a category's or word's list, in a tag's list.
    Unit *first_of(const RankedList &list) { return list.first ? &unit(list.first) : nullptr; }
    Unit *next_of_owner(const Unit *u) { return u->by_owner.next ? &unit(u->by_owner.next) : nullptr; }
    Unit *next_of_tag(const Unit *u) { return u->by_tag.next ? &unit(u->by_tag.next) : nullptr; }
    Contexts contexts;
    RankGroups groups;

    // Whether of two units of one word, or of one category, the first stands before the other in its list.
    static bool ranks_before(const Unit &a, const Unit &b) {
        return a.checked_count != b.checked_count ? a.checked_count > b.checked_count : a.stamp < b.stamp;
    }

    // The contexts of the unit on the path in checked trees, and the next one after one of them, or 0.
    PathContexts contexts_on(Unit *unit, const Path &path);
    std::uint32_t next_on_path(std::uint32_t context) const;
    // The sum of the checked counts of the context's unit on its path.
    std::int32_t total_on_path(std::uint32_t context);
    // The number of a category or a word for questions to `below`.
    std::uint32_t owner_of(LabelEntry *category);
    std::uint32_t owner_of(LexEntry *word);
    const ContextsBelow &below() const { return below_; }

    // Bytes held.
    std::size_t bytes() const;

    // ---------------------------------------------------------------- for edit/ and the reader alone

    // Counts one more node of the unit, in a checked tree or not: its labels, and how they occur together.
    void count(Unit *unit, bool checked);
    // Count one more or one less of one label of a node alone, and of how its labels occur together. An entry
    // comes with its first count and goes with its last.
    void count_tag(Label *tag, bool checked);
    void discount_tag(Label *tag, bool checked);
    void count_category(const Unit *unit, bool checked);
    void discount_category(const Unit *unit, bool checked);
    void discount_word(const Unit *unit, bool checked);  // nothing if there is none
    void count_together(Unit *unit, bool checked);
    void discount_together(Unit *unit, bool checked);
    // Record and withdraw a node's mother context, as its unit and its mother's are; nothing for a root.
    void record_context(const Node *node, bool checked);
    void withdraw_context(const Node *node, bool checked);
    // All of the tree's nodes have become checked, or unchecked.
    void move_checked_counts(Node *root, bool checked);
    // References of undo tags: they keep a tag's entry alive. Null: nothing.
    void retain(Label *tag);
    void release(Label *tag);

    // The reader has given the units stamps up to this one.
    void continue_stamps(std::int64_t latest) { latest_ = latest; }

    // The entries of a label, made if there is none; not counted yet.
    LabelEntry *label_entry(Label *name, LabelKind kind);
    LexEntry *lex_entry(Label *word);

    // The lists of one kind at work.
    struct OwnerElements;
    struct TagElements;
    struct ContextElements;
    Ranking<OwnerElements> owner_lists();
    Ranking<TagElements> tag_lists();
    Ranking<ContextElements> context_lists();

    // For the verifier: what is wrong with the indexes of paths; null: nothing.
    const char *fault_in_paths(const Unit *unit) const;
    const char *fault_below(const RankedList &units, std::uint32_t owner) const;

  private:
    template <class Entry>
    void count_one(Entry *entry, bool checked);
    void discount(LabelEntry *entry, bool checked);
    void discount(LexEntry *entry, bool checked);
    void drop(LabelEntry *entry);
    LabelEntry *&place_of(Label *name, LabelKind kind) { return name ? name->entry(kind) : no_tag_; }

    // A unit's checked count goes up (by = 1) or down (-1) in its lists.
    void move_pair(Unit *pair, int by);
    void move_word(Unit *unit, int by);
    void count_pair(Unit *pair, bool checked);
    void discount_pair(Unit *pair, bool checked);

    void record(Unit *unit, const Node *node, bool checked);
    void withdraw(Unit *unit, const Node *node, bool checked);
    void move_context(Unit *unit, std::uint32_t number, int by);
    void add_below(const RankedList &units, std::uint32_t owner);
    void make_path_lists(Unit *unit);
    Path path_of(const Context &c) const { return {unit(c.mother).syn, c.dtr_nr, c.nr_of_dtrs}; }
    bool is_on(const Context &c, const Path &path) const {
        return c.dtr_nr == path.dtr_nr && c.nr_of_dtrs == path.nr_of_dtrs && unit(c.mother).syn == path.syn;
    }

    static constexpr std::int32_t longest_without_paths = 2;

    Corpus &corpus_;
    Pool<LabelEntry> label_entries_;
    Pool<LexEntry> lex_entries_;
    LabelEntry *no_tag_ = nullptr;
    PathLists path_lists_{corpus_.units, contexts, groups};
    ContextsBelow below_{corpus_.units, contexts};
    std::int64_t latest_ = 0;    // the highest stamp
    std::int64_t foremost_ = 0;  // the lowest
};

struct Statistics::OwnerElements {
    Units &units;
    RankHook &hook(std::uint32_t number) const { return units[number].by_owner; }
    int checked_count(std::uint32_t number) const { return units[number].checked_count; }
};

struct Statistics::TagElements {
    Units &units;
    RankHook &hook(std::uint32_t number) const { return units[number].by_tag; }
    int checked_count(std::uint32_t number) const { return units[number].checked_count; }
};

struct Statistics::ContextElements {
    Contexts &contexts;
    RankHook &hook(std::uint32_t number) const { return contexts[number].by_unit; }
    int checked_count(std::uint32_t number) const { return contexts[number].checked_count; }
};

inline Ranking<Statistics::OwnerElements> Statistics::owner_lists() {
    return {OwnerElements{corpus_.units}, groups};
}
inline Ranking<Statistics::TagElements> Statistics::tag_lists() {
    return {TagElements{corpus_.units}, groups};
}
inline Ranking<Statistics::ContextElements> Statistics::context_lists() {
    return {ContextElements{contexts}, groups};
}

// The node's place under its mother. REQUIRES: it has one.
inline Path path_of_context(const Node *node) {
    return {node->mother()->syn(), node->position(), node->mother()->nr_of_dtrs()};
}

}  // namespace brindle
