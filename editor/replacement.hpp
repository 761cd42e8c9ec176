#pragma once
// The replacement of a subtree by an edited one, with all statistics brought up to date.
#include <string>
#include <string_view>

#include "model/node.hpp"

namespace brindle {

// Replaces the subtree of `node`, a node of tree number `tree` (0-based), by the bracketing. Returns "" or,
// when the text is not sound, the message of the check: nothing is changed then. The tree is unchecked first
// and stays so; MODIFIED rises by 1; the old nodes are freed, and no filter answer is awaited for one of them
// any more. A bare node at the very end of the text needs a blank or newline behind it.
std::string replace_subtree(int tree, Node *node, std::string_view text);

// True if n is `top` or lies below it. n may be null.
bool is_in_scope(const Node *top, const Node *n);

// Puts `fresh`, the top of a subtree stored as unchecked, in the place of `old` and frees everything below
// `old`. REQUIRES: TREE_CHECKED is clear, as is the tree's flag.
void delete_and_attach(Node *old, Node *fresh, int tree);

// Takes the node's labels out of the tables, with the references of its undo fields, and frees it. REQUIRES:
// its links and mother contexts have been withdrawn.
void delete_node(Node *node);

}  // namespace brindle
