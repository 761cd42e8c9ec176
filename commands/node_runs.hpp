#pragma once
// The batch runs that Prolog drives, as the Prolog connection sees them.
#include <string_view>

namespace brindle {

struct Node;
struct TreeView;

// Prolog is back at its prompt: the run sends its next node.
void go_on_with_node_run();

// The run is over: nothing is sent for it any more.
void abandon_node_run();

// Shows Prolog's answer at the node; Control-C in the notice ends the run.
void batch_prompt_at_node(Node *node, std::string_view text, TreeView *view);

}  // namespace brindle
