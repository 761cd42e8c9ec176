#pragma once
// A subtree as the syntax editor shows it.
#include <string>

#include "model/node.hpp"

namespace brindle {

// The node and everything below it, each on a line of its own (a newline comes first, none last), indented by
// four blanks a level: nodes with daughters in brackets, all others bare.
std::string write_tree_to_editor(const Node *node);

}  // namespace brindle
