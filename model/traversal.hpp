#pragma once
// Walks over trees, as loops: a tree may be a million nodes deep or wide.
#include <vector>

#include "model/node.hpp"

namespace brindle {

// Applies the function to every node of the subtree of `node` and of the sisters to its right, in post-order:
// first the daughters, then the sisters, then the node itself. The function may release the node that it is
// given. Returns nothing; `node` must not be null.
template <class Function>
void do_with(Node *node, Function &&function) {
    struct Step {
        Node *node;
        bool entered;
    };
    std::vector<Step> stack{{node, false}};
    while (!stack.empty()) {
        Node *n = stack.back().node;
        if (stack.back().entered) {
            stack.pop_back();
            function(n);
            continue;
        }
        stack.back().entered = true;
        if (n->sister()) stack.push_back({n->sister(), false});
        if (n->dtrs()) stack.push_back({n->dtrs(), false});
    }
}

// Applies the function to the node and all its sisters to the right, the rightmost first and the node itself
// last.
template <class Function>
void do_with_sisters(Node *node, Function &&function) {
    std::vector<Node *> sisters;
    for (; node; node = node->sister()) sisters.push_back(node);
    for (auto it = sisters.rbegin(); it != sisters.rend(); ++it) function(*it);
}

// The node after `node` in document order (pre-order, left to right) inside the subtree of `top`; null at its
// end.
inline Node *next_in_document(const Node *node, const Node *top) {
    if (node->dtrs()) return node->dtrs();
    while (node != top) {
        if (node->sister()) return node->sister();
        node = node->mother();
    }
    return nullptr;
}

// Applies the function to every node of the subtree of `top` (its sisters left out) in document order.
template <class Function>
void for_each_in_subtree(Node *top, Function &&function) {
    for (Node *n = top; n; n = next_in_document(n, top)) function(n);
}

// Applies the function to every node of the subtree of `top` (its sisters left out), left to right, each
// after its daughters.
template <class Function>
void for_each_mother_last(Node *top, Function &&function) {
    const auto lowest = [](Node *node) {
        while (node->dtrs()) node = node->dtrs();
        return node;
    };
    for (Node *n = lowest(top);; n = n->sister() ? lowest(n->sister()) : n->mother()) {
        function(n);
        if (n == top) return;
    }
}

}  // namespace brindle
