#pragma once
// What the layout knows of each level while it places nodes from left to right, with subtrees that move.
//
// A move shifts every text of a subtree and, level by level, what the level remembers of its latest text.
// Done node by node this costs a walk over the subtree for every mother that pushes her daughters, which in
// deep trees is quadratic. Here a move costs a few steps:
//
// - Nodes do not move at all until the walk is over: a mother keeps by how much all below her moved.
// - A level's latest text nearly always moves with its subtree. Such levels (`moving`) get the move through a
//   running sum over the levels, changed at its two ends.
// - By definition a level moves when a list of sisters under the mover ends in a node that stands exactly
// where
//   the level's latest text stands, and a word does when its terminal does so. A word to the right of which
//   another text has come on its terminal's level is therefore left behind, its level `standing`, while the
//   nodes beside it move on. If one of those moves onto that very pixel, or if texts have got out of order,
//   the definition is followed to the letter, list by list (`searched`), until the level's next text.
#include <climits>
#include <set>
#include <vector>

#include "model/node.hpp"

namespace brindle {

// A node in the layout's walk. Indexes count in document order, so all nodes below a mother have higher ones,
// and of two nodes of a level the one to the right has the higher one.
struct Placed {
    Node *node = nullptr;
    int mother = -1;
    int half_syn = 0;     // half the width of the category's text
    int moved = INT_MIN;  // by how much all below the node has moved; INT_MIN: not known yet
    int prev_list = -1;   // if a list of sisters ends here: where the list before it on this level ends
    int up = -1;          // an ancestor, and the sum of what the ancestors below it have moved this node
    int moved_below_up = 0;
};

// The right end of a level: centre and right edge of its latest text, 0 on a level without any.
struct LevelEnd {
    int anchor = 0;
    int right = 0;
};

class LayoutLevels {
  public:
    explicit LayoutLevels(std::vector<Placed> &placed) : placed_(placed) {}

    // The walk goes down to this depth; it comes back up by `leave`.
    void enter(int depth);
    void leave() { --depth_; }

    // REQUIRES: level is at most one below the walk's depth.
    LevelEnd end(int level) const;

    // A text becomes the latest of its level: that of a node, whose x is set, or a terminal's word.
    void place_node(int node, int level, LevelEnd end, bool ends_list);
    void place_word(int terminal, int level, LevelEnd end);

    // All below the mother (at the walk's depth, its texts reaching down to level `reach`) moves right by
    // delta > 0.
    void move_below(int mother, int reach, int delta);

    // The final right edges of all levels, from the root's on.
    std::vector<int> right_edges() const;

  private:
    enum class Kind { moving, standing, searched };

    struct Level {
        Kind kind = Kind::moving;
        LevelEnd end;          // of a moving level: to be raised by the sum of the moves up to it
        int moves = 0;         // the running sum's change from the level above to this one
        int latest = -1;       // the node whose text is the latest; if a word's, its terminal
        bool is_word = false;  // the latest text is a word
        int last_list = -1;    // where the last list of sisters ends
        int candidate = -1;    // standing: the rightmost list end that has not passed the anchor, and its x
        int candidate_x = 0;
        int highest = INT_MIN;  // searched: no list ends further right
    };

    struct Move {
        int mother;
        int depth;
        int delta;
    };

    Level &at(int level) { return levels_[static_cast<std::size_t>(level)]; }
    const Level &at(int level) const { return levels_[static_cast<std::size_t>(level)]; }
    Placed &placed(int i) { return placed_[static_cast<std::size_t>(i)]; }
    int sum_of_moves(int level) const;
    int x_of(int i);
    int highest_list(const Level &level);
    void place(int level, LevelEnd end, int latest, bool is_word);
    void leave_word_behind(int level, int terminal);
    void search_from_now(int level, int highest);
    bool meets_candidate(int level, const Move &move);
    std::vector<int> words_moved_into(int level, const Move &move) const;
    std::vector<int> follow_definition(int level, const Move &move);
    void check_level_below(int level, const std::vector<int> &words);

    std::vector<Placed> &placed_;
    std::vector<Level> levels_;
    std::vector<int> sums_;  // the running sums on the walk's path
    int depth_ = -1;
    std::set<int> watched_;  // levels that a move must look at: searched ones, standing ones with a candidate
    int followed_ = -1;      // during a move: the level for which the definition was followed last,
    std::vector<int> words_;  // and the terminals there whose words moved by it, rightmost first
    std::vector<int> path_;
};

}  // namespace brindle
