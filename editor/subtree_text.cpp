#include "editor/subtree_text.hpp"

#include <algorithm>

#include "model/limits.hpp"

namespace brindle {
namespace {

// Levels that are indented, so that a chain of nodes without end does not grow with the square of its length.
// No sentence has as many.
constexpr std::size_t indented_levels = 250;

void write_label(std::string &text, const Node *node) {
    if (node->dtrs) text += '(';
    text += text_of(node->syn);
    if (node->sem) (text += START_SEM_TAG) += node->sem->view();
    if (node->lex) (text += START_LEX_TAG) += node->lex->view();
}

}  // namespace

std::string write_tree_to_editor(const Node *node) {
    std::string text;
    std::size_t depth = 0;
    for (const Node *n = node;;) {
        text += '\n';
        text.append(4 * std::min(depth, indented_levels), ' ');
        write_label(text, n);
        if (n->dtrs) {
            n = n->dtrs;
            ++depth;
            continue;
        }
        for (; depth > 0 && !n->sister; --depth) {
            n = n->mother;
            text += ')';
        }
        if (depth == 0) return text;
        n = n->sister;
    }
}

}  // namespace brindle
