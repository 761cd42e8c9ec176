#include "display/layout.hpp"

#include <algorithm>
#include <vector>

#include "display/layout_levels.hpp"
#include "model/punctuation.hpp"

namespace brindle {

const TreeView *layout_owner = nullptr;

void forget_layout_owner(const TreeView *view) {
    if (layout_owner == view) layout_owner = nullptr;
}

void init_treesizes(LayoutParams &params, TreeView &view) {
    params = LayoutParams();
    view.show_punctuation = 0;
}

int get_node_y(const Node *node, const LayoutParams &params) {
    return top_baseline + depth_of(node) * params.vdist;
}

namespace {

// One layout of one tree. Nodes are placed where the walk finds room for them; what moves later is noted at
// the mothers, and added up when the walk is over.
class Layout {
  public:
    Layout(const LayoutParams &params, TextMeasure &measure, bool show)
        : sisterdist_(params.sisterdist), mindist_(params.mindist), measure_(measure), show_(show) {}

    void lay_out(Node *root);
    // The tree's width and height, as the levels say.
    void measure_tree(TreeEntry &tree, int vdist) const;

  private:
    struct Open {
        int index;
        int reach;  // the lowest level that a text of its subtree stands on
    };

    int enter(Node *node, int mother);
    int depth() const { return static_cast<int>(open_.size()) - 1; }
    int leave();
    int measure_node(int index);
    void place_leaf();
    void place_mother(const Node *last_dtr);
    void move_nodes();

    int sisterdist_;
    int mindist_;
    TextMeasure &measure_;
    bool show_;
    std::vector<Placed> placed_;
    LayoutLevels levels_{placed_};
    std::vector<Open> open_;  // the nodes from the root to where the walk stands
};

void Layout::lay_out(Node *root) {
    enter(root, -1);
    for (;;) {
        Node *node = placed_.back().node;
        while (node->dtrs) {
            node = node->dtrs;
            enter(node, open_.back().index);
        }
        place_leaf();
        Node *next = nullptr;
        while (node != root && !(next = next_shown_sister(node, show_))) {
            leave();
            place_mother(node);
            node = node->mother;
        }
        if (node == root) break;
        leave();
        enter(next, open_.back().index);
    }
    move_nodes();
}

int Layout::enter(Node *node, int mother) {
    const int index = static_cast<int>(placed_.size());
    placed_.push_back({.node = node, .mother = mother, .up = mother});
    open_.push_back({index, depth() + 1});
    levels_.enter(depth());
    return index;
}

// Back to the mother.
int Layout::leave() {
    const Open done = open_.back();
    open_.pop_back();
    open_.back().reach = std::max(open_.back().reach, done.reach);
    levels_.leave();
    return done.index;
}

// Half the width of the node's text. What each text's start needs waits in its field until the walk is over.
int Layout::measure_node(int index) {
    Placed &p = placed_[static_cast<std::size_t>(index)];
    const int syn = measure_.width(p.node->syn);
    const int sem = p.node->sem ? measure_.width(p.node->sem) : 0;
    p.half_syn = syn / 2;
    if (p.node->sem) p.node->sem_x = sem / 2;
    return std::max(syn, sem) / 2;
}

void Layout::place_leaf() {
    const int index = open_.back().index;
    Node *node = placed_[static_cast<std::size_t>(index)].node;
    const int half = measure_node(index);
    const LevelEnd here = levels_.end(depth());
    node->x = std::max(here.anchor + sisterdist_, mindist_ + here.right + half);
    if (node->lex) {
        const int half_word = measure_.width(node->lex) / 2;
        const int least = mindist_ + levels_.end(depth() + 1).right;
        node->x = std::max(node->x, least + half_word);
        node->lex_x = half_word;
        levels_.place_word(index, depth() + 1, {node->x, node->x + half_word});
        open_.back().reach = depth() + 1;
    }
    levels_.place_node(index, depth(), {node->x, node->x + half}, !next_shown_sister(node, show_));
}

void Layout::place_mother(const Node *last_dtr) {
    const auto [index, reach] = open_.back();
    Placed &p = placed_[static_cast<std::size_t>(index)];
    Node *node = p.node;
    const int half = measure_node(index);
    const int first_x = node->dtrs->x;
    const int left = first_x + (last_dtr->x - first_x) / 2 - half;
    const int least = mindist_ + levels_.end(depth()).right;
    if (left < least) levels_.move_below(index, reach, least - left);
    p.moved = std::max(0, least - left);
    node->x = std::max(left, least) + half;
    levels_.place_node(index, depth(), {node->x, node->x + half}, !next_shown_sister(node, show_));
}

void Layout::move_nodes() {
    for (Placed &p : placed_) {
        if (p.mother >= 0) {
            const Placed &mother = placed_[static_cast<std::size_t>(p.mother)];
            p.moved_below_up = mother.moved_below_up + mother.moved;
        } else {
            p.moved_below_up = 0;
        }
        Node *node = p.node;
        node->x += p.moved_below_up;
        node->syn_x = node->x - p.half_syn;
        if (node->sem) node->sem_x = node->x - node->sem_x;
        if (node->lex) node->lex_x = node->x - node->lex_x;
    }
}

void Layout::measure_tree(TreeEntry &tree, int vdist) const {
    tree.width = 0;
    tree.height = top_baseline - vdist;
    for (const int right : levels_.right_edges()) {
        if (right == 0) return;
        tree.width = std::max(tree.width, right);
        tree.height += vdist;
    }
}

}  // namespace

void tree_layout(const TreeView &view, const LayoutParams &params, TextMeasure &measure, TreeEntry &tree) {
    layout_owner = &view;
    Layout layout(params, measure, view.show_punctuation != 0);
    layout.lay_out(tree.root);
    layout.measure_tree(tree, params.vdist);
}

}  // namespace brindle
