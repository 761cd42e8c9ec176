#include "display/layout.hpp"

#include <algorithm>

#include "display/layout_levels.hpp"
#include "model/punctuation.hpp"

namespace brindle {

// One layout of one tree. Until the walk is over a node stands where it was placed first, and its texts'
// places say how far to the left of that they begin.
class LayoutWalk {
  public:
    LayoutWalk(const LayoutParams &params, TextMeasure &measure, bool show)
        : params_(params), measure_(measure) {
        layout_.show_punctuation = show;
    }

    TreeLayout lay_out(Node *root);

  private:
    PlacedNode &at(int i) { return layout_.nodes[static_cast<std::size_t>(i)]; }
    int &reach(int i) { return reach_[static_cast<std::size_t>(i)]; }
    Node *next_sister(int i) { return next_shown_sister(at(i).node, layout_.show_punctuation); }

    void walk(Node *root);
    int enter(Node *node, int mother);
    int leave(int i);
    int measure_node(PlacedNode &n);
    void place_leaf(int i);
    void place_mother(int i, int last_dtr);
    void measure_tree();
    void finish_nodes();

    const LayoutParams &params_;
    TextMeasure &measure_;
    TreeLayout layout_;
    LayoutLevels levels_{layout_.nodes};
    std::vector<int>
        reach_;  // the lowest level that a text of the node's subtree stands on, as far as placed
};

TreeLayout LayoutWalk::lay_out(Node *root) {
    walk(root);
    measure_tree();
    finish_nodes();
    return std::move(layout_);
}

void LayoutWalk::walk(Node *root) {
    for (int i = enter(root, -1);;) {
        while (Node *first = at(i).node->dtrs()) i = enter(first, i);
        place_leaf(i);
        while (i != 0 && !next_sister(i)) {
            const int last_dtr = i;
            i = leave(i);
            place_mother(i, last_dtr);
        }
        if (i == 0) break;
        Node *next = next_sister(i);
        i = enter(next, leave(i));
    }
    leave(0);
}

int LayoutWalk::enter(Node *node, int mother) {
    const auto i = static_cast<int>(layout_.nodes.size());
    const int depth = mother < 0 ? 0 : at(mother).depth + 1;
    layout_.nodes.push_back({.node = node, .depth = depth, .mother = mother});
    reach_.push_back(depth);
    levels_.add_node();
    return i;
}

// The node and all below it are placed. Returns its mother.
int LayoutWalk::leave(int i) {
    at(i).next = static_cast<std::int32_t>(layout_.nodes.size());
    const int mother = at(i).mother;
    if (mother >= 0) reach(mother) = std::max(reach(mother), reach(i));
    return mother;
}

// Half the width of the node's text.
int LayoutWalk::measure_node(PlacedNode &n) {
    const int syn = measure_.width(n.node->syn());
    const int sem = n.node->sem() ? measure_.width(n.node->sem()) : 0;
    n.syn_x = syn / 2;
    n.sem_x = sem / 2;
    return std::max(syn, sem) / 2;
}

void LayoutWalk::place_leaf(int i) {
    PlacedNode &n = at(i);
    const int half = measure_node(n);
    const LevelEnd here = levels_.end(n.depth);
    n.x = std::max(here.anchor + params_.sisterdist, params_.mindist + here.right + half);
    if (n.node->lex()) {
        n.lex_x = measure_.width(n.node->lex()) / 2;
        n.x = std::max(n.x, params_.mindist + levels_.end(n.depth + 1).right + n.lex_x);
        levels_.place_word(i, n.lex_x);
        reach(i) = n.depth + 1;
    }
    levels_.place_node(i, half, !next_sister(i));
}

void LayoutWalk::place_mother(int i, int last_dtr) {
    PlacedNode &n = at(i);
    const int half = measure_node(n);
    const int first_x = at(i + 1).x;
    const int left = first_x + (at(last_dtr).x - first_x) / 2 - half;
    const int least = params_.mindist + levels_.end(n.depth).right;
    levels_.close(i, reach(i), std::max(0, least - left));
    n.x = std::max(left, least) + half;
    levels_.place_node(i, half, !next_sister(i));
}

void LayoutWalk::measure_tree() {
    layout_.height = top_baseline - params_.vdist;
    for (int level = 0; level < levels_.nr_of_levels(); ++level) {
        const int right = levels_.end(level).right;
        if (right == 0) return;
        layout_.width = std::max(layout_.width, right);
        layout_.height += params_.vdist;
    }
}

// Where everything stands in the end, and what subtrees cover.
void LayoutWalk::finish_nodes() {
    layout_.index_.reserve(layout_.nodes.size());
    for (int i = 0; i < static_cast<int>(layout_.nodes.size()); ++i) {
        PlacedNode &n = at(i);
        n.x = levels_.x_of(i);
        n.syn_x = n.x - n.syn_x;
        n.sem_x = n.node->sem() ? n.x - n.sem_x : 0;
        n.lex_x = n.node->lex() ? n.x - n.lex_x : 0;
        const auto own = layout_.own_span(n);
        n.left = own.left;
        n.right = own.right;
        layout_.index_.emplace(n.node, i);
    }
    for (auto i = static_cast<int>(layout_.nodes.size()) - 1; i > 0; --i) {
        PlacedNode &mother = at(at(i).mother);
        mother.left = std::min(mother.left, at(i).left);
        mother.right = std::max(mother.right, at(i).right);
    }
}

TreeLayout lay_out(Node *root, const LayoutParams &params, TextMeasure &measure, bool show_punctuation) {
    return LayoutWalk(params, measure, show_punctuation).lay_out(root);
}

// ---------------------------------------------------------------- what a layout is asked

const PlacedNode *TreeLayout::find(const Node *node) const {
    const auto at = index_.find(node);
    return at == index_.end() ? nullptr : &nodes[static_cast<std::size_t>(at->second)];
}

TreeLayout::Span TreeLayout::own_span(const PlacedNode &n) const {
    int left = n.node->sem() ? std::min(n.syn_x, n.sem_x) : n.syn_x;
    if (n.node->lex()) left = std::min(left, n.lex_x);
    const Span texts{left, n.x + (n.x - left) + 1};
    if (n.mother < 0) return texts;
    const int mother_x = nodes[static_cast<std::size_t>(n.mother)].x;
    return {std::min(texts.left, mother_x), std::max(texts.right, mother_x)};
}

// A node reaches from its mother's baseline, where its branch begins, to its word, one level below it.
TreeLayout::Levels TreeLayout::levels_in(const Clip &clip, int text_height, const LayoutParams &params) {
    const int vdist = std::max(params.vdist, 1);
    const int reach = 2 * (text_height + params.text_gap + margin);
    const int first = (clip.top - top_baseline - reach) / vdist - 1;
    const int last = (clip.bottom - top_baseline + reach) / vdist + 1;
    return {first, last};
}

bool TreeLayout::own_part_in(const PlacedNode &n, const Clip &clip) const {
    const Span span = own_span(n);
    return span.right >= clip.left - margin && span.left <= clip.right + margin;
}

}  // namespace brindle
