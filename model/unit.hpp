#pragma once
// Units: what a node carries, interned. Equal nodes share a unit, and the statistics count at units.
#include "base/growing_array.hpp"
#include "model/label.hpp"

namespace brindle {

// Where an element stands in a ranked list (stats/ranked_list.hpp). Numbers are those of its array; 0: none.
struct RankHook {
    std::uint32_t next = 0;
    std::uint32_t prev = 0;
    std::uint32_t group = 0;  // its neighbours with the same checked count; while a corpus is read, a stamp
};

// A ranked list of units or of mother contexts.
struct RankedList {
    std::uint32_t first = 0;  // the element seen most often in checked trees; 0: the list is empty
    std::uint32_t last = 0;
    std::int32_t length = 0;
};

// A category with the tag and the word that a node has beside it. Besides, for each category and tag that
// occur with words there is a unit that stands for them over all words: the words' `pair`.
struct Unit {
    Label *syn;     // category
    Label *sem;     // semantic tag; null: none
    Label *lex;     // word; null: none, or any
    Unit *pair;     // of a unit with a word: its category and tag over all words; of any other unit: itself
    bool terminal;  // of nodes with a word

    // Of the indexes of its contexts (stats/paths.hpp): PathLists knows them; under which owner ContextsBelow
    // does, 0: it does not.
    bool has_path_lists;
    std::uint32_t owner;

    // The statistics; written by stats/ alone. Of units whose count is 0 no list knows.
    std::int32_t count;          // nodes that carry it
    std::int32_t checked_count;  // of these, nodes in checked trees
    std::int64_t stamp;   // of the last change of that: equals of a word or category stand in this order
    RankHook by_owner;    // in the list of its word, if it has one, else of its category
    RankHook by_tag;      // of a pair: in the list of its tag
    RankedList contexts;  // its mother contexts (stats/contexts.hpp)

    LabelKind category_kind() const { return terminal ? LabelKind::TERM : LabelKind::NONTERM; }
};

// The units of one corpus, numbered from 1 in the order in which they first came up. They live as long as it
// does and never move.
class Units {
  public:
    Units() : units_(Pages::huge) {}

    // The unit of a node with these labels; `sem` and `lex` may be null.
    Unit *intern(Label *syn, Label *sem, Label *lex);
    // Ask memory for what intern will look at: first the slots, some time later the pair.
    void fetch_slots(const Label *syn, const Label *sem, const Label *lex) const;
    void fetch_pair(const Label *syn, const Label *sem, const Label *lex) const;
    // The pair of a category of that kind and a tag; null if no node ever had them.
    Unit *find_pair(const Label *syn, LabelKind kind, const Label *sem) const;
    // The unit, or null if no node ever had these labels.
    Unit *find(const Label *syn, const Label *sem, const Label *lex) const;

    // One more than the highest number.
    std::uint32_t end() const { return units_.size(); }
    Unit &operator[](std::uint32_t number) { return units_[number]; }
    const Unit &operator[](std::uint32_t number) const { return units_[number]; }
    std::uint32_t number_of(const Unit *unit) const { return units_.number_of(unit); }

    // Bytes held.
    std::size_t bytes() const { return units_.bytes() + index_.bytes(); }

  private:
    Unit *find(const Label *syn, const Label *sem, const Label *lex, bool terminal) const;
    Unit *intern(Label *syn, Label *sem, Label *lex, bool terminal);

    mutable GrowingArray<Unit> units_;
    HashIndex index_;
};

}  // namespace brindle
