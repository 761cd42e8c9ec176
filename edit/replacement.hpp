#pragma once
// The steps by which a subtree is replaced by another; edit/change.hpp and the history go them.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/corpus.hpp"

namespace brindle {

// Nodes out of their tree and counted nowhere. Their selections and `changed` flags stand in them, their undo
// tags here.
struct DetachedSubtree {
    struct NodeUndo {
        std::uint32_t node;
        UndoTags tags;
    };
    Node *top = nullptr;
    std::size_t nodes = 0;
    std::vector<NodeUndo> undo = {};  // of the nodes that have undo tags
};

class SubtreeReplacement {
  public:
    // Of the subtree of `old`.
    SubtreeReplacement(Corpus &corpus, Node *old) : corpus_(corpus), old_(old) {}

    // Why the bracketing cannot be put there; no value: it can.
    std::optional<std::string> refuse(std::string_view bracketing) const;
    // The nodes that the bracketing says, counted nowhere. REQUIRES: it is not refused.
    Node *read(std::string_view bracketing);
    // Counts the nodes below `fresh` and puts them in the old subtree's place. The old nodes do not occur
    // with others any more, but are still there to be looked at. REQUIRES: the tree is unchecked.
    void put(Node *fresh);
    // Takes the old nodes' labels out of the tables, with their undo tags. The caller owns the nodes then.
    DetachedSubtree detach_old();

  private:
    void count(Node *fresh);
    void withdraw_old();
    void attach(Node *fresh);

    Corpus &corpus_;
    Node *old_;
};

// Gives nodes that have been put again the undo tags of when they were detached. Not after a save: it has
// made all nodes, detached ones too, nodes that were never changed.
void restore_undo_tags(Corpus &corpus, const DetachedSubtree &subtree);

// Gives the nodes back. Nothing may refer to them any more.
void free_nodes(Corpus &corpus, const DetachedSubtree &subtree);

}  // namespace brindle
