#pragma once
// A corpus in memory: its trees, what they are made of, what is counted in them, what has been edited.
#include <ctime>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/node.hpp"
#include "model/unit_texts.hpp"

namespace brindle {

class Statistics;       // stats/statistics.hpp
struct ChangeListener;  // edit/change.hpp
class History;          // edit/history.hpp

// One tree of a corpus.
struct Tree {
    Node *root = nullptr;
    bool checked = false;  // the annotator has approved the tree
    bool editing = false;  // a syntax editor is open on it: its windows refuse interaction
};

// The tags that undo needs of a node whose tag has been changed; other nodes have none.
struct UndoTags {
    Label *undo_sem;  // the tag before the latest change; null: none
    Label *orig_sem;  // the tag before the first change since the last save; null: none
};

// Several corpora may be open side by side: none knows of another.
class Corpus {
  public:
    Corpus();
    ~Corpus();
    Corpus(const Corpus &) = delete;
    Corpus &operator=(const Corpus &) = delete;

    int amount() const { return static_cast<int>(trees.size()); }
    Tree &tree(int t) { return trees[static_cast<std::size_t>(t)]; }  // 0-based
    const Tree &tree(int t) const { return trees[static_cast<std::size_t>(t)]; }
    Tree &tree_of(const Node *node) { return tree(node->tree()); }
    const Tree &tree_of(const Node *node) const { return tree(node->tree()); }

    // The node's undo tags; both null for a node that was never changed since the last save.
    UndoTags undo_of(const Node *node) const;
    UndoTags &undo_for_change(const Node *node);

    // What a save does to the edit state: nothing is changed any more, no node can be undone.
    void forget_edits();

    // The tree's word graph as read; "": it has none.
    std::string_view wordgraph(int t) const;

    std::vector<Tree> trees;  // in file order
    Labels labels;
    Units units;
    mutable UnitTexts unit_texts;  // made by writers when they need them
    Nodes nodes;
    std::unordered_map<int, std::string> wordgraphs;  // of trees that have one, by their 0-based numbers
    std::unique_ptr<Statistics> statistics;           // never null

    std::string name;              // the corpus file's name; set at start-up and by "Save as"
    std::timespec file_time = {};  // the file's modification time when read or last saved
    int unsaved_changes = 0;
    std::uint32_t saves = 0;  // how often forget_edits was called

    std::vector<ChangeListener *> listeners;  // told of every change (edit/change.hpp); none is owned
    History *history = nullptr;               // notes every change for undo and redo; null: none is kept

  private:
    GrowingArray<UndoTags> undo_{Pages::on_demand};  // by the node's number
};

}  // namespace brindle
