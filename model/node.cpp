#include "model/node.hpp"

namespace brindle {

Node *Nodes::reuse() {
    Node *const node = free_;
    free_ = node->sister();
    *node = Node();
    return node;
}

void Nodes::release(Node *node) {
    node->set_sister(free_);
    free_ = node;
}

int depth_of(const Node *node) {
    int depth = 0;
    for (const Node *n = node->mother(); n; n = n->mother()) ++depth;
    return depth;
}

}  // namespace brindle
