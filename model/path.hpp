#pragma once
// How a shell names a node: "." is the root, "2" its second daughter, "2.1" that node's first daughter.
#include <string>
#include <string_view>

#include "model/node.hpp"

namespace brindle {

// The node's path from its root.
std::string path_of(const Node *node);

// The node that the path names below the root; null if there is none or the text is no path.
Node *node_at(Node *root, std::string_view path);

}  // namespace brindle
