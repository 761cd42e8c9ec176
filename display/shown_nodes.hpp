#pragma once
// The shown nodes of a laid-out tree with what each subtree covers, so that drawing passes over whatever lies
// outside the part of the canvas in view.
#include <cstdint>
#include <vector>

#include "display/layout_params.hpp"
#include "model/node.hpp"

namespace brindle {

struct ShownNode {
    Node *node;
    std::int32_t depth;  // levels above it
    std::int32_t next;   // index of the next node that is not below this one
    std::int32_t left;   // what the texts and branches of the node and of all below it cover
    std::int32_t right;
};

// A part of the canvas: from (left, top) to (right, bottom), both inside.
struct Clip {
    int left, top, right, bottom;
};

// The nodes of one tree in document order, as the latest layout placed them; made anew after each layout.
class ShownNodes {
  public:
    ShownNodes(Node *root, bool show_punctuation);

    const std::vector<ShownNode> &all() const { return nodes_; }

    // Calls draw(const ShownNode &) in document order for every node of which something may be seen in the
    // clip: its texts, the branch from its mother, the branch to its word.
    template <class Draw>
    void for_each_in(const Clip &clip, int text_height, const LayoutParams &params, Draw &&draw) const {
        const Range levels = levels_in(clip, text_height, params);
        for (std::size_t i = 0; i < nodes_.size();) {
            const ShownNode &n = nodes_[i];
            if (n.depth > levels.last || n.right < clip.left - margin || n.left > clip.right + margin) {
                i = static_cast<std::size_t>(n.next);
                continue;
            }
            if (n.depth >= levels.first && own_part_in(n.node, clip)) draw(n);
            ++i;
        }
    }

  private:
    static constexpr int margin = 8;  // how far a selected node's highlight reaches beyond its text, and more

    struct Range {
        int first, last;
    };
    static Range levels_in(const Clip &clip, int text_height, const LayoutParams &params);
    static bool own_part_in(const Node *node, const Clip &clip);

    std::vector<ShownNode> nodes_;
};

}  // namespace brindle
