#pragma once
// Batch runs over a selection of trees, and what each action does with one tree.
#include <functional>
#include <vector>

namespace brindle {

struct Node;
struct TreeView;

// A run that does its work in one go, tree by tree.
struct BatchRun {
    TreeView *view = nullptr;            // the window whose run it is; null: none
    std::vector<int> trees;              // 0-based, in the order of processing (propose/selection.hpp)
    std::function<void(int)> take = {};  // makes the tree the window's current one; may be empty
};

// A run begins: BATCH is set, and nobody waits for Prolog.
void begin_batch();
// The number of the run begun last. A run that finds another number after a dispatch has been aborted in it
// and followed by another: BATCH is no longer its own.
int batch_number();
// It has ended, by itself or by Abort: BATCH, FILTER_NODE, EVAL_NODE and ROOT_ONLY are cleared.
void end_batch();

// Takes the trees one after another and works on each, letting the front end dispatch before each and telling
// it of the progress after each, until BATCH is cleared: that is how Abort and errors end a run after the
// tree in hand. REQUIRES: begin_batch(). Returns the number of the tree taken last, -1 if there was none.
int run_batch(const BatchRun &run, const std::function<void(int)> &work);

// The actions, each a whole run as run_batch makes it.
int check_all(const BatchRun &run);
int uncheck_all(const BatchRun &run);
int propose_all(const BatchRun &run);     // unchecks each tree just before it is proposed
int undo_edits_all(const BatchRun &run);  // all edits of every node
// Expands the formula of each root that has one; the function gives every node that it reaches its expansion
// as its tag, and clears BATCH on an error (prolog/'s expand_into_tags).
int expand_all(const BatchRun &run, const std::function<void(Node *root, TreeView *view)> &expand);

// Unchecks the tree, then proposes it.
void propose_tree(int tree);
// undo_all on every node of the tree.
void undo_edits(int tree);

}  // namespace brindle
