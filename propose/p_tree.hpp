#pragma once
// The proposal tree: beside every node of a tree the tags that the checked trees suggest for it.
//
// A mother's candidates are the combinations of its daughters' candidates that occur under it in checked
// trees; taken literally their number is the product of the daughters' numbers. But a combination's
// probability grows with that of each daughter's candidate, and what a daughter's candidate contributes
// depends only on its tag and its probability. So one candidate is kept for each tag of a node: its highest
// probability, computed by the very floating-point products of the enumeration, and its place among the
// node's tags in the order in which the enumeration first meets them. Which combination it stands for is
// found later, for the chosen ones only (propose/choice.hpp).
#include <cstdint>
#include <vector>

#include "propose/tag_slots.hpp"
#include "stats/tables.hpp"

namespace brindle {

// The best candidate of one node for one tag.
struct PEntry {
    LabelLink *link;     // category and tag; null for a word's candidate
    LexLink *lexlink;    // word, category and tag; null otherwise
    double prob;         // the highest probability among this tag's candidates
    bool built = false;  // it was built from the daughters

    LabelEntry *sem() const { return link ? link->label : lexlink->sem; }
    Parents &parents() const { return link ? link->parents : lexlink->parents; }
};

// A node with its candidates, by their place in PTree::entries.
struct PTreeNode {
    static constexpr std::uint32_t none = ~std::uint32_t{0};

    Node *node;
    LabelEntry *syn_entry;
    std::uint32_t sister = none;  // place of the next sister
    std::uint32_t entries = 0;    // place of the first candidate
    std::uint32_t nr_of_entries = 0;
    std::uint32_t choice =
        none;                 // the candidate chosen: a place in PTree::entries; none: there is no candidate
    bool is_decided = false;  // `choice` says what is to be proposed
};

// The nodes of one tree in document order (a first daughter follows its mother) and their candidates.
struct PTree {
    std::vector<PTreeNode> nodes;
    std::vector<PEntry> entries;

    // The places of the daughters of the node at a place, in order, put into `places` (emptied first).
    void daughters(std::uint32_t place, std::vector<std::uint32_t> &places) const;
};

// Builds the proposal tree of a tree and finds every node's candidates. A label that is missing in the tables
// ends the program.
PTree make_p_tree(Node *root);

// The place of the node's most probable candidate in PTree::entries, the first in the enumeration's order
// among equals; PTreeNode::none if it has none.
std::uint32_t get_most_probable_root(const PTree &tree, const PTreeNode &node);

// The share of a mother's context among a candidate's contexts on that path, and what the candidate
// contributes to a combination under that mother. Everybody computes them here: equal products must be equal
// to the bit.
inline double share(std::int32_t checked_count, std::int32_t path_total) {
    return static_cast<double>(checked_count) / static_cast<double>(path_total);
}
inline double contribution(double prob, double share) {
    return prob * share;
}

}  // namespace brindle
