#pragma once
// What a command says that would ask Prolog something while it is answering.
#include <string_view>

namespace brindle {

class Node;
struct TreeWindow;

// Shows the text at the node, which must be in the window's tree, with the buttons "I Know" and "Please try
// to fix that"; the latter gives a Prolog that waits for input an answer.
void busy_notice(const Node *node, std::string_view text, TreeWindow &tw);

}  // namespace brindle
