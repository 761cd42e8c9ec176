#pragma once
// How labels occur together: category and tag, word and (category, tag), and the mother contexts of both.
// All changes count under TREE_CHECKED.
#include "stats/tables.hpp"

namespace brindle {

// Stores one node: its labels, their links both ways, the word's link. Sets the node's syn, sem and lex.
// `sem` and `lex` may be null.
void store(Label *syn, Label *sem, Label *lex, Node *node);

// The entry of the category or tag `a` counts one more of its partner `b`.
void synsemlink(LabelEntry *a, LabelEntry *b);
// The word counts one more (category, tag).
void lexlink(LexEntry *word, LabelEntry *syn, LabelEntry *sem);

// Records the node's mother context; nothing for a root.
void parent(Node *node);
// Withdraws it. The node's labels and its mother's must be those under which it was recorded.
void delete_parent(Node *node);

// The link, or null.
LabelLink *search_link(const LabelEntry *a, LabelEntry *b);
LexLink *search_lexlink(const LexEntry *word, LabelEntry *syn, LabelEntry *sem);

// The context of a node among its mother's daughters; REQUIRES: the node has a mother.
Context context_of(const Node *node);
// The record of a mother context, or null.
ParentRecord *search_parent(const LabelLink *link, const Context &context);
ParentRecord *search_lexparent(const LexLink *link, const Context &context);

// The mothers' tags that nodes of the category, whatever their own tags, occur with on the path in checked
// trees, in no order; null: it does not occur there. The first question about a category builds its index,
// which every later change keeps.
const TagCounts *tags_above(LabelEntry *category, const Path &path);

// Counts one less; the link must exist, else "Fault in hashtable!?".
void delete_link(LabelEntry *a, LabelEntry *b);
void delete_lexlink(LexEntry *word, LabelEntry *syn, LabelEntry *sem);

// Withdraws the node's links: the word's, the tag's, the category's.
void remove_links(Node *node);

// Moves the node's contributions into (TREE_CHECKED set) or out of (clear) every checked_count.
void adjust_checked_amount(Node *node);

// Empties the lists of an entry that leaves its table; reset_links empties all lists at once (tables_init).
void clear_links(LabelEntry *entry);
void clear_links(LexEntry *entry);
void reset_links();

// Bytes held by links and contexts.
std::size_t link_bytes();

}  // namespace brindle
