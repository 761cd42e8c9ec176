#pragma once
// Who asked Prolog, and what runs now. One request is outstanding at a time; these globals say whose it is,
// so that the batch and the Prolog connection need not know each other.

namespace brindle {

struct Node;
struct TreeView;

extern bool BATCH;  // a batch run is in progress; set by the batch, cleared by Abort and on errors
extern TreeView
    *BATCH_TREE_GUI;       // the window of the running request; set by "filter" and by Prolog-driven runs
extern Node *FILTER_NODE;  // the node whose tag Prolog's next message replaces; null: none
extern Node *EVAL_NODE;    // the node at which Prolog's next message is shown (evaluation runs); null: none
extern bool ROOT_ONLY;     // the Prolog-driven run visits only root nodes
extern int CURRENT_TREE;   // place in the selection of the tree that the Prolog-driven run is on
extern bool SWAP_FLAG;     // every node whose formula is expanded gets the expansion as its tag

// All of them back to their start values (for tests).
void reset_request();

}  // namespace brindle
