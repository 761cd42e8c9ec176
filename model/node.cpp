#include "model/node.hpp"

#include "model/pool.hpp"

namespace brindle {
namespace {
Pool<Node> &nodes() {
    static Pool<Node> pool(Pages::small);
    return pool;
}
}  // namespace

Node *new_node() {
    return nodes().make();
}

void release_node(Node *node) {
    nodes().release(node);
}

std::size_t node_bytes() {
    return nodes().bytes();
}

int depth_of(const Node *node) {
    int depth = 0;
    for (const Node *n = node->mother; n; n = n->mother) ++depth;
    return depth;
}

}  // namespace brindle
