#pragma once
// The selected subtree as a LaTeX document that draws it with the ecltree package.
#include <string>
#include <string_view>

#include "model/node.hpp"

namespace brindle {

// The whole document for the subtree whose highest selected node leads up from `node`. `tree_number` counts
// from 0; the caption counts from 1 and names the corpus.
std::string latex_document(Node *node, int tree_number, std::string_view corpus, bool show_punctuation);

// The parts of the document, each appended to `out`.
// The preamble, up to and with the brace before the tree.
void latexheader(std::string &out);
// The node, what is selected below it, and its selected shown sisters, indented by `depth` tabs.
void latexbody(std::string &out, const Node *node, int depth, bool show_punctuation);
// A newline and that many tabs; none for a depth below 1.
void latextabs(std::string &out, int depth);
// The caption and the end of the document.
void latexend(std::string &out, int tree_number, std::string_view corpus);

// The text with a backslash before each character that means something to LaTeX.
std::string latexlabel(std::string_view text);

}  // namespace brindle
