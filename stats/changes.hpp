#pragma once
// The one road of a change: every change of a node's tag or category goes through here, so that the
// statistics are always those of the trees as they are, and what undo needs is kept. Everywhere: REQUIRES
// that TREE_CHECKED is the flag of the node's tree (TreeCheckedScope).
#include <string_view>

#include "model/node.hpp"

namespace brindle {

struct TreeView;

// Gives the node the tag ("" for none; blanks become '_') and repaints the window if one is given. A text of
// more than MAXSEM - 1 bytes ends the program: commands refuse it first.
void new_label(Node *node, std::string_view tag, TreeView *view);

// Gives the node the category; "" does nothing. More than MAXSYN - 1 bytes end the program. Not recorded for
// undo.
void change_cat(Node *node, std::string_view category, TreeView *view);

// The same without the check of the length and the repaint.
void store_change(Node *node, std::string_view tag);
void do_cat_change(Node *node, std::string_view category);

// Withdraw the node's tag, its category, its mother context with its daughters', from the statistics.
void remove_label(Node *node);
void remove_syn_cat(Node *node);
void remove_parents(Node *node);

// Gives the node the tag it had before its latest change; a second call redoes. False: there is nothing to
// undo.
bool undo_last(Node *node, TreeView *view);

// Gives the node the tag of the last save and forgets its changes (MODIFIED falls by 1). False: it is not
// changed.
bool undo_all(Node *node);

// Takes the node's tag away if it has one.
void clear(Node *node, TreeView *view);

// After a save: releases the references of undo_sem and orig_sem, clears both and `changed`.
void reset(Node *node);

// What a successful save does to the whole forest's edit state: reset on every node, MODIFIED = 0.
void reset_edits();

// Marks tree number t (0-based) as checked or not and moves its counts. Nothing if it is so already.
void set_checked(int t, bool checked);

}  // namespace brindle
