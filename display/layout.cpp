#include "display/layout.hpp"

#include <algorithm>
#include <vector>

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

// What stands furthest right on a level: category and tag texts of the level's nodes, and the words of the
// terminals one level above.
struct Level {
    int anchor = 0;  // centre of the node placed last; 0: none yet
    int right = 0;   // right edge of the text placed last
};

class Layout {
  public:
    Layout(const LayoutParams &params, TextMeasure &measure, bool show)
        : sisterdist_(params.sisterdist), mindist_(params.mindist), measure_(measure), show_(show) {}

    void lay_out(Node *root);
    // The tree's width and height, as the levels say.
    void measure_tree(TreeEntry &tree, int vdist) const;

  private:
    struct Widths {
        int syn, sem, half;
    };

    Widths widths(const Node *node);
    Level &level(std::size_t depth);
    void place_leaf(Node *node, std::size_t depth);
    void place_mother(Node *node, const Node *last_dtr, std::size_t depth);
    void place_texts(Node *node, const Widths &w, std::size_t depth);
    void addtodaughters(Node *first, int delta, std::size_t depth);
    void push_shown(Node *first, std::size_t depth);
    void move_level(const Node *last, int delta, std::size_t depth);

    struct Moved {
        Node *node;
        std::size_t depth;
    };

    int sisterdist_;
    int mindist_;
    TextMeasure &measure_;
    bool show_;
    std::vector<Level> levels_;
    std::vector<Moved> stack_;
};

Layout::Widths Layout::widths(const Node *node) {
    const int syn = measure_.width(node->syn);
    const int sem = node->sem ? measure_.width(node->sem) : 0;
    return {syn, sem, std::max(syn, sem) / 2};
}

Level &Layout::level(std::size_t depth) {
    if (depth >= levels_.size()) levels_.resize(depth + 1);
    return levels_[depth];
}

void Layout::lay_out(Node *root) {
    Node *node = root;
    std::size_t depth = 0;
    for (;;) {
        for (; node->dtrs; node = node->dtrs) ++depth;
        place_leaf(node, depth);
        Node *next = nullptr;
        while (node != root && !(next = next_shown_sister(node, show_))) {
            Node *mother = node->mother;
            place_mother(mother, node, --depth);
            node = mother;
        }
        if (node == root) return;
        node = next;
    }
}

void Layout::place_leaf(Node *node, std::size_t depth) {
    const Widths w = widths(node);
    const Level here = level(depth);
    node->x = std::max(here.anchor + sisterdist_, mindist_ + here.right + w.half);
    if (node->lex) {
        Level &below = level(depth + 1);
        const int half_word = measure_.width(node->lex) / 2;
        node->lex_x = std::max(node->x - half_word, mindist_ + below.right);
        node->x = node->lex_x + half_word;
        below = {node->x, node->x + half_word};
    }
    place_texts(node, w, depth);
}

void Layout::place_mother(Node *node, const Node *last_dtr, std::size_t depth) {
    const Widths w = widths(node);
    const int first_x = node->dtrs->x;
    const int left = first_x + (last_dtr->x - first_x) / 2 - w.half;
    const int least = mindist_ + level(depth).right;
    if (left < least) addtodaughters(node->dtrs, least - left, depth + 1);
    node->x = std::max(left, least) + w.half;
    place_texts(node, w, depth);
}

void Layout::place_texts(Node *node, const Widths &w, std::size_t depth) {
    level(depth) = {node->x, node->x + w.half};
    node->syn_x = node->x - w.syn / 2;
    if (node->sem) node->sem_x = node->x - w.sem / 2;
}

// Moves the list of daughters that begins at `first`, and all below it, to the right.
void Layout::addtodaughters(Node *first, int delta, std::size_t depth) {
    push_shown(first, depth);
    while (!stack_.empty()) {
        const auto [node, d] = stack_.back();
        stack_.pop_back();
        if (!next_shown_sister(node, show_)) move_level(node, delta, d);
        node->x += delta;
        node->syn_x += delta;
        if (node->sem) node->sem_x += delta;
        if (node->dtrs)
            push_shown(node->dtrs, d + 1);
        else if (node->lex)
            node->lex_x += delta;
    }
}

void Layout::push_shown(Node *first, std::size_t depth) {
    for (Node *n = first; n; n = next_shown_sister(n, show_)) stack_.push_back({n, depth});
}

// The last node of a list is about to move: what it was the last of on its level moves with it.
void Layout::move_level(const Node *last, int delta, std::size_t depth) {
    Level &here = level(depth);
    if (last->x != here.anchor) return;
    here.right += delta;
    here.anchor = last->x + delta;
    if (!last->lex) return;
    Level &below = level(depth + 1);
    below.right += delta;
    below.anchor += delta;
}

void Layout::measure_tree(TreeEntry &tree, int vdist) const {
    tree.width = 0;
    tree.height = top_baseline - vdist;
    for (const Level &level : levels_) {
        if (level.right == 0) return;
        tree.width = std::max(tree.width, level.right);
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
