#pragma once
// What becomes of the child's messages: a node's new tag, a notice at a node, or a notice.
#include <string_view>

namespace brindle {

struct PrologHost;

// Delivers one message to whoever asked, as model/request.hpp tells: to FILTER_NODE as its tag, to EVAL_NODE
// as a notice there, else as a notice of the output window. A text that cannot be a tag is refused with a
// notice at the node.
void show_message(PrologHost &host, std::string_view message);

// Tells that the prompt came inside a message, ends a batch that waited for it, and clears who asked.
void no_end_message(PrologHost &host);

}  // namespace brindle
