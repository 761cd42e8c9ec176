#pragma once
// What the layout knows of each level while it places nodes from left to right, with subtrees that move.
//
// The rule: when all below a mother moves, each level under her is gone through from right to left. A list of
// sisters that ends exactly where the level does takes the level's end along, and if its last sister has a
// word, the end of the level below too. Gone through node by node, deep trees would take quadratic time. So
//
// - a mother notes by how much all below her has moved; a node's place is worked out when it is needed;
// - the end of a level is kept as a distance from the node whose text is the latest on it: it moves with it;
// - where that may not be the whole story the end is kept as it is, and the level watched: every move goes
//   through its lists by the rule. That is so when a text has come to the right of the terminal whose word
//   was the level's latest text: the word moves on and the level's end does not, until a list happens to end
//   there. And when, after that, a text has come to the left of where a list ends.
#include <set>
#include <vector>

#include "display/layout.hpp"

namespace brindle {

// Centre and right edge of the latest text of a level, 0 on a level without any.
struct LevelEnd {
    int anchor = 0;
    int right = 0;
};

class LayoutLevels {
  public:
    // Of nodes in document order, which keep the places they are given first.
    explicit LayoutLevels(const std::vector<PlacedNode> &nodes) : nodes_(nodes) {}

    // The latest of the nodes is new.
    void add_node();

    int nr_of_levels() const { return static_cast<int>(levels_.size()); }
    LevelEnd end(int level);

    // A node, or a terminal's word, is placed on its level, half as wide as said. The word comes first.
    void place_word(int terminal, int half);
    void place_node(int node, int half, bool ends_list);

    // All below the mother is placed, its texts reaching down to the level `reach`, and moves to the right by
    // delta >= 0.
    void close(int mother, int reach, int delta);

    // Where the node stands now.
    int x_of(int node);

  private:
    struct Level {
        int carrier = -1;            // the node with which the end moves; -1: none
        LevelEnd end;                // to the right of the carrier
        std::vector<int> list_ends;  // where lists of sisters end, from left to right
        bool watched = false;        // is in watched_
        bool out_of_order = false;   // at some time a text came to the left of where a list ended
    };

    // How a node has moved: `up` is an ancestor, `by` the sum of what ancestors below that one have moved it.
    struct Moves {
        int up;
        int by = 0;
        int below = -1;  // by how much all below the node has moved; -1: not known yet
    };

    Level &at(int level) { return levels_[static_cast<std::size_t>(level)]; }
    const PlacedNode &node(int i) const { return nodes_[static_cast<std::size_t>(i)]; }
    Moves &moves(int i) { return moves_[static_cast<std::size_t>(i)]; }
    bool is_closed(int i) { return i >= 0 && moves(i).below >= 0; }

    void place(int level, int node, int half);
    void leave_word_behind(int level);
    void watch(int level);
    int word_carried_by(int level);
    int word_carrying(int level);
    std::vector<int> go_through(int level, int mother, int delta, const std::vector<int> &words);

    const std::vector<PlacedNode> &nodes_;
    std::vector<Moves> moves_;  // of the nodes
    std::vector<Level> levels_;
    std::set<int> watched_;
    std::vector<int> path_;
};

}  // namespace brindle
