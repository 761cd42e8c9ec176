#pragma once
// The label tables: every label of the corpus once, with its counts and its co-occurrence lists.
//
// Two tables of 1999 buckets each; a chain lists its entries in the order of their first storing. The way
// from a node to its entries leads through the interned label (model/label.hpp) and never through the chains;
// they are the tables' order, for whatever lists labels.
#include <array>
#include <cstdint>
#include <string_view>

#include "model/node.hpp"
#include "stats/link_records.hpp"

namespace brindle {

// An entry of `table`: a semantic tag (or the absence of one), or a category of one kind.
struct LabelEntry {
    Label *name = nullptr;           // null only for the SEM entry that counts nodes without a tag
    std::int32_t count = 0;          // nodes with the label, and for tags the references of undo fields
    std::int32_t checked_count = 0;  // nodes with it in checked trees
    LabelKind kind = LabelKind::SEM;
    LabelEntry *next = nullptr;  // in the bucket's chain
    LabelEntry *prev = nullptr;
    LabelLinks links;                      // of a category: the tags it occurs with; of a tag: the categories
    CategoryContexts *contexts = nullptr;  // of a category, once tags_above has been asked
};

// An entry of `lex_table`: a word.
struct alignas(64) LexEntry {
    Label *name = nullptr;
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    LexEntry *next = nullptr;
    LexEntry *prev = nullptr;
    LexLinks links;  // the (category, tag) pairs that it occurs with
};

// One bucket: a chain with both ends, so that entries come and go in constant time.
template <class Entry>
struct Bucket {
    Entry *first = nullptr;
    Entry *last = nullptr;
};

extern std::array<Bucket<LabelEntry>, nr_of_buckets> table;    // changed by stats/ only, read by all
extern std::array<Bucket<LexEntry>, nr_of_buckets> lex_table;  // likewise

// Whether a look-up may fail: with `yes`, a missing entry ends the program with "Fault in hashtable!?".
enum class MustExist { no, yes };

// The entry of a label; null name with kind SEM: the entry for "no tag".
LabelEntry *search(Label *name, LabelKind kind, MustExist must);
// The same for a text; the empty text with kind SEM is "no tag".
LabelEntry *search(std::string_view name, LabelKind kind, MustExist must);
LexEntry *searchlex(Label *word, MustExist must);
LexEntry *searchlex(std::string_view word, MustExist must);

// Empties both tables; what was in them is released.
void tables_init();

// The entry of a label, made if there is none; not counted yet.
LabelEntry *label_entry(Label *name, LabelKind kind);
LexEntry *lex_entry(Label *word);

// Counts one more occurrence under TREE_CHECKED, creating the entry on the first one.
LabelEntry *storelabel(Label *name, LabelKind kind);
LexEntry *storelex(Label *word);

// Counts one less under TREE_CHECKED; at 0 the entry goes. A missing entry: "Fault in hashtable!?".
void delete_old_label(Label *name, LabelKind kind);
void delete_lex_label(Label *word);

// Releases one undo reference of the first tag (count - 1; at 0 the entry goes) and adds one to the second.
// Null: none.
void handle_undo(Label *release, Label *retain);

// The kind of the node's category: TERM if the node has a word.
inline LabelKind category_kind(const Node *node) {
    return node->lex ? LabelKind::TERM : LabelKind::NONTERM;
}

// The node's entries; the program ends with "Fault in hashtable!?" if one is missing.
LabelEntry *category_entry(const Node *node);
LabelEntry *tag_entry(const Node *node);
LexEntry *word_entry(const Node *node);

// Ends the program with "Fault in hashtable!?".
[[noreturn]] void fault_in_hashtable();

// Bytes held by tables, links and contexts (for bench/; indexes of long lists are not counted).
std::size_t table_bytes();

}  // namespace brindle
