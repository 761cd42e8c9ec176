#include "display/hit_test.hpp"

#include <algorithm>

namespace brindle {
namespace {

bool spans(const PlacedNode &n, HitKind kind, int x) {
    int left = n.node->sem() ? std::min(n.syn_x, n.sem_x) : n.syn_x;
    if (kind == HitKind::word) {
        if (!n.node->lex()) return false;
        left = n.lex_x;
    }
    return left <= x && x <= n.x + (n.x - left);
}

Hit find_on_category_line(const TreeLayout &layout, int x, int level) {
    if (Node *node = searchpos(HitKind::category, x, level, layout))
        return {node, node->lex() ? InfoMode::term : InfoMode::nonterm};
    if (level > 0)
        if (Node *node = searchpos(HitKind::word, x, level - 1, layout)) return {node, InfoMode::lex};
    return {};
}

}  // namespace

Node *searchpos(HitKind kind, int x, int level, const TreeLayout &layout) {
    Node *hit = nullptr;
    for (const PlacedNode &n : layout.nodes)
        if (n.depth == level && spans(n, kind, x)) hit = n.node;
    return hit;
}

Hit find(const TreeLayout &layout, int x, int y, int text_height, const LayoutParams &params) {
    if (params.vdist <= 0) return {};
    const int offset = y + text_height - top_baseline;
    const int level = offset / params.vdist;
    const int below_top = offset - level * params.vdist;
    if (below_top <= text_height) return find_on_category_line(layout, x, level);
    if (below_top > 2 * text_height + params.text_gap) return {};
    Node *node = searchpos(HitKind::tag, x, level, layout);
    return node ? Hit{node, InfoMode::sem} : Hit{};
}

}  // namespace brindle
