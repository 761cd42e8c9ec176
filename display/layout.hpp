#pragma once
// Where the nodes of a tree stand: one pass from left to right that places leaves one after another on their
// level, centres a mother over her shown daughters, and pushes a whole subtree to the right where its mother
// would meet the text already on her level.
//
// All distances are pixels of the canvas; x grows to the right, y downward.
#include <cstdint>
#include <vector>

#include <tsl/robin_map.h>

#include "display/layout_params.hpp"
#include "display/text_measure.hpp"
#include "model/node.hpp"

namespace brindle {

// A shown node and where it stands.
struct PlacedNode {
    Node *node = nullptr;
    std::int32_t depth = 0;    // levels above it
    std::int32_t mother = -1;  // index of its mother in TreeLayout::nodes; -1 at the root
    std::int32_t next = 0;     // index of the next node that is not below this one
    int x = 0;                 // centre of its texts
    int syn_x = 0;             // where its category begins
    int sem_x = 0;             // where its tag begins; 0: it has none
    int lex_x = 0;             // where its word begins; 0: it has none
    int left = 0;              // what the texts and branches of the node and of all below it cover
    int right = 0;
};

// A part of the canvas: from (left, top) to (right, bottom), both inside.
struct Clip {
    int left, top, right, bottom;
};

// One tree as a window shows it. It is good as long as the tree's nodes, labels and widths are those that
// were laid out; a check mark or a selection does not matter.
struct TreeLayout {
    int width = 0;
    int height = 0;
    bool show_punctuation = false;  // as it was laid out
    std::vector<PlacedNode> nodes;  // the shown ones in document order, the root first

    // Where the node stands, in constant time; null: it is hidden or not of this tree.
    const PlacedNode *find(const Node *node) const;

    // Calls draw(const PlacedNode &) in document order for every node of which something may be seen in the
    // clip: its texts, the branch from its mother, the branch to its word. `text_height` is the height of
    // "H".
    template <class Draw>
    void for_each_in(const Clip &clip, int text_height, const LayoutParams &params, Draw &&draw) const {
        const Levels levels = levels_in(clip, text_height, params);
        for (std::size_t i = 0; i < nodes.size();) {
            const PlacedNode &n = nodes[i];
            if (n.depth > levels.last || n.right < clip.left - margin || n.left > clip.right + margin) {
                i = static_cast<std::size_t>(n.next);
                continue;
            }
            if (n.depth >= levels.first && own_part_in(n, clip)) draw(n);
            ++i;
        }
    }

  private:
    friend class LayoutWalk;
    static constexpr int margin = 8;  // how far a selected node's highlight reaches beyond its text, and more

    struct Span {
        int left, right;
    };
    // What the node's own texts and the branch from its mother cover.
    Span own_span(const PlacedNode &n) const;
    bool own_part_in(const PlacedNode &n, const Clip &clip) const;
    struct Levels {
        int first, last;
    };
    static Levels levels_in(const Clip &clip, int text_height, const LayoutParams &params);

    tsl::robin_map<const Node *, std::int32_t> index_;  // of `nodes`
};

// Lays the tree out. Nothing is written into its nodes, and hidden ones are not in the layout.
TreeLayout lay_out(Node *root, const LayoutParams &params, TextMeasure &measure, bool show_punctuation);

// The baseline of the node's category.
inline int get_node_y(const PlacedNode &node, const LayoutParams &params) {
    return top_baseline + node.depth * params.vdist;
}

}  // namespace brindle
