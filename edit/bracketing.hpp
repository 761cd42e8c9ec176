#pragma once
// The two checks of an edited bracketing, before it replaces a subtree: what they let pass, the corpus reader
// reads. Both are loops over the text, linear in its length.
#include <string>
#include <string_view>

namespace brindle {

// The bracket pass: round brackets, those inside tags too, must balance, and nothing bracketed may follow the
// first bracketed group. Returns a message with its line number; "": sound.
std::string check_tree_in_editor(std::string_view text);

// The structural pass: the text must begin with one node, its daughters inside its brackets, as the reader
// takes them; a bracketed node's category must not run into a word. Returns the first fault's message; "":
// sound. What follows the node is not looked at.
std::string check_readtree(std::string_view text);

// Both passes, the first message found.
std::string check_bracketing(std::string_view text);

}  // namespace brindle
