#include "display/hit_test.hpp"

#include <algorithm>

#include "model/punctuation.hpp"

namespace brindle {
namespace {

bool spans(const Node *node, HitKind kind, int x) {
    int left = node->sem ? std::min(node->syn_x, node->sem_x) : node->syn_x;
    if (kind == HitKind::word) {
        if (!node->lex) return false;
        left = node->lex_x;
    }
    return left <= x && x <= node->x + (node->x - left);
}

Hit find_on_category_line(Node *root, int x, int level, bool show) {
    if (Node *node = searchpos(HitKind::category, x, level, root, show))
        return {node, node->lex ? InfoMode::term : InfoMode::nonterm};
    if (level > 0)
        if (Node *node = searchpos(HitKind::word, x, level - 1, root, show)) return {node, InfoMode::lex};
    return {};
}

}  // namespace

Node *searchpos(HitKind kind, int x, int level, Node *root, bool show_punctuation) {
    Node *hit = nullptr;
    int depth = 0;
    for (Node *node = root; node;) {
        if (depth == level && spans(node, kind, x)) hit = node;
        if (depth < level && node->dtrs) {
            node = node->dtrs;
            ++depth;
            continue;
        }
        Node *next = nullptr;
        while (node != root && !(next = next_shown_sister(node, show_punctuation))) {
            node = node->mother;
            --depth;
        }
        node = next;
    }
    return hit;
}

Hit find(Node *root, int x, int y, int text_height, const LayoutParams &params, bool show_punctuation) {
    if (params.vdist <= 0) return {};
    const int offset = y + text_height - top_baseline;
    const int level = offset / params.vdist;
    const int below_top = offset - level * params.vdist;
    if (below_top <= text_height) return find_on_category_line(root, x, level, show_punctuation);
    if (below_top > 2 * text_height + params.text_gap) return {};
    Node *node = searchpos(HitKind::tag, x, level, root, show_punctuation);
    return node ? Hit{node, InfoMode::sem} : Hit{};
}

}  // namespace brindle
