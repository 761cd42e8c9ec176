#include "display/shown_nodes.hpp"

#include <algorithm>

#include "model/punctuation.hpp"

namespace brindle {
namespace {

struct Span {
    int left, right;
};

// What the node's texts and the branch from its mother cover.
Span own_span(const Node *node) {
    int left = node->sem ? std::min(node->syn_x, node->sem_x) : node->syn_x;
    if (node->lex) left = std::min(left, node->lex_x);
    const Span texts{left, node->x + (node->x - left) + 1};
    if (!node->mother) return texts;
    return {std::min(texts.left, node->mother->x), std::max(texts.right, node->mother->x)};
}

}  // namespace

ShownNodes::ShownNodes(Node *root, bool show_punctuation) {
    std::vector<std::size_t> open;  // the nodes from the root to the current one's mother
    const auto close = [&](std::size_t depth) {
        while (open.size() > depth) {
            const ShownNode done = nodes_[open.back()];
            nodes_[open.back()].next = static_cast<std::int32_t>(nodes_.size());
            open.pop_back();
            if (open.empty()) continue;
            ShownNode &mother = nodes_[open.back()];
            mother.left = std::min(mother.left, done.left);
            mother.right = std::max(mother.right, done.right);
        }
    };
    for (Node *node = root; node; node = next_shown(node, root, show_punctuation)) {
        while (!open.empty() && nodes_[open.back()].node != node->mother) close(open.size() - 1);
        const Span span = own_span(node);
        nodes_.push_back({node, static_cast<std::int32_t>(open.size()), 0, span.left, span.right});
        open.push_back(nodes_.size() - 1);
    }
    close(0);
}

// A node reaches from its mother's baseline, where its branch begins, to its word, one level below it.
ShownNodes::Range ShownNodes::levels_in(const Clip &clip, int text_height, const LayoutParams &params) {
    const int vdist = std::max(params.vdist, 1);
    const int reach = 2 * (text_height + params.text_gap + margin);
    const int first = (clip.top - top_baseline - reach) / vdist - 1;
    const int last = (clip.bottom - top_baseline + reach) / vdist + 1;
    return {first, last};
}

bool ShownNodes::own_part_in(const Node *node, const Clip &clip) {
    const Span span = own_span(node);
    return span.right >= clip.left - margin && span.left <= clip.right + margin;
}

}  // namespace brindle
