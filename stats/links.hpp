#pragma once
// How labels occur together: category and tag, word and (category, tag). All changes count under
// TREE_CHECKED.
#include "stats/contexts.hpp"
#include "stats/tables.hpp"

namespace brindle {

// Stores one node: its labels, their links both ways, the word's link. Sets the node's syn, sem, lex, link
// and lexlink. `sem` and `lex` may be null.
void store(Label *syn, Label *sem, Label *lex, Node *node);

// Stores the nodes of a tree, whose labels are set, in their order, then records their mother contexts in the
// order of do_with. A whole corpus is stored faster by BulkStoring (stats/bulk).
void store_tree(Node *root, std::span<Node *const> nodes);

// Links the node's labels, which have these entries, once more (word null: it has none). Sets link and
// lexlink.
void link_labels(Node *node, LabelEntry *category, LabelEntry *tag, LexEntry *word);

// Counts one more of the pair, in the category's list and in the tag's. Returns the category's link.
LabelLink *synsemlink(LabelEntry *category, LabelEntry *tag);
// Counts one less of the pair, both ways.
void delete_link(LabelLink *link);

// The link from a to b, or null.
LabelLink *search_link(LabelEntry *a, LabelEntry *b);
LexLink *search_lexlink(const LexEntry *word, LabelEntry *syn, LabelEntry *sem);

// Withdraws the node's links: the word's, the tag's, the category's.
void remove_links(Node *node);

// Moves the contributions of the node's whole tree (`root`) into (TREE_CHECKED set) or out of (clear) every
// checked_count.
void adjust_checked_amounts(Node *root);

// Empties the lists of an entry that leaves its table; reset_links empties all lists at once (tables_init).
void clear_links(LabelEntry *entry);
void clear_links(LexEntry *entry);
void reset_links();

// Bytes held by links and contexts with their indexes.
std::size_t link_bytes();

}  // namespace brindle
