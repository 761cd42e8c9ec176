#pragma once
// The mother contexts of nodes, recorded in the lists of their links. A node's own labels and its mother's
// must be those under which it was recorded. All changes count under TREE_CHECKED.
#include <span>

#include "model/node.hpp"
#include "stats/link_records.hpp"

namespace brindle {

// Records the node's mother context; nothing for a root. REQUIRES: the node is linked (store, link_labels).
void parent(Node *node);
// Withdraws it; a missing one ends the program with "Fault in hashtable!?".
void delete_parent(Node *node);

// Records the contexts of a whole tree, in the order of do_with.
void record_tree(Node *root);

// What happens to the contexts of some nodes, which are taken in their order: many at once cost less than one
// at a time, for the waits for memory overlap.
enum class ContextChange { record, withdraw, adjust_checked };
void change_contexts(std::span<Node *const> nodes, ContextChange change);

// The context of a node among its mother's daughters; REQUIRES: the node has a mother.
Context context_of(const Node *node);
// The record of a mother context, or null.
ParentRecord *search_parent(const LabelLink *link, const Context &context);
ParentRecord *search_lexparent(const LexLink *link, const Context &context);

// The mothers' tags that nodes of the category, whatever their own tags, occur with on the path in checked
// trees, in no order; null: it does not occur there. The first question about a category builds its index,
// which every later change keeps.
const TagCounts *tags_above(LabelEntry *category, const Path &path);

// Gives the records of a list back.
void clear_contexts(Parents &parents);
// Forgets what tags_above keeps for a category.
void clear_category_contexts(LabelEntry *category);
// Forgets all contexts of all lists at once.
void reset_contexts();

// Bytes held by contexts with their indexes.
std::size_t context_bytes();

}  // namespace brindle
