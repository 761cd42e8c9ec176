#pragma once
// The corpus in memory and its global state. Each global is set and read by those named beside it and by
// nobody else.
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "model/node.hpp"

namespace brindle {

// One tree of the corpus.
struct TreeEntry {
    Node *root = nullptr;
    std::unique_ptr<std::string> wordgraph;  // the tree's word graph as read; null: it has none
    bool checked = false;                    // the annotator has approved the tree
    bool editing = false;                    // a syntax editor is open on it: its windows refuse interaction
    std::int32_t width = 0;                  // of the drawn tree, pixels; set by the layout
    std::int32_t height = 0;
};

extern std::vector<TreeEntry> forest;  // the trees in file order; set by readcorpus
extern int amount;                     // number of trees; set by readcorpus (forest holds exactly these)

extern std::string CORPUS;             // the corpus file's name; set at start-up and by "Save as"
extern std::timespec CORPUS_MOD_TIME;  // the file's modification time when read or last saved
extern int MODIFIED;                   // number of unsaved changes; set by stats/changes, undo and saving
extern bool
    TREE_CHECKED;  // flag of the tree whose counts change now; set by TreeCheckedScope, read by stats/

// Sets TREE_CHECKED for its own lifetime: every change of counts happens inside one of these.
class TreeCheckedScope {
  public:
    explicit TreeCheckedScope(bool checked) : before_(TREE_CHECKED) { TREE_CHECKED = checked; }
    explicit TreeCheckedScope(const TreeEntry &tree) : TreeCheckedScope(tree.checked) {}
    ~TreeCheckedScope() { TREE_CHECKED = before_; }
    TreeCheckedScope(const TreeCheckedScope &) = delete;
    TreeCheckedScope &operator=(const TreeCheckedScope &) = delete;

  private:
    bool before_;
};

// The entry of the tree that holds the node, or null when no tree of the forest does. Climbs to the root,
// then looks the root up in constant time.
TreeEntry *tree_of(const Node *node);

// Tells tree_of which tree a root belongs to; called by whoever sets a TreeEntry's root.
void register_root(const Node *root, int tree);
void forget_root(const Node *root);

// Frees the forest and its nodes and puts every global above back to its start value (for tests and programs
// that read one corpus after another). The label tables are not touched: see reset_tables.
void reset_forest();

}  // namespace brindle
