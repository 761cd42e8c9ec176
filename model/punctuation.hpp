#pragma once
// Which nodes of a tree are shown. With punctuation hidden a list of daughters ends, for whatever shows it,
// before the first one after the first daughter whose category is punctuation; the first daughter is always
// shown. Layout, drawing, hit test and export all walk trees through these functions.
#include "model/node.hpp"

namespace brindle {

// True exactly for the one-character labels ".", "!" and "?".
inline bool punctuation(const Label *label) {
    if (label->size != 1) return false;
    const char c = *label->text();
    return c == '.' || c == '!' || c == '?';
}

// The sister shown after the node; null: the node is the last one shown.
inline Node *next_shown_sister(const Node *node, bool show_punctuation) {
    Node *sister = node->sister();
    return sister && (show_punctuation || !punctuation(sister->syn())) ? sister : nullptr;
}

// The shown node after `node` in document order inside the subtree of `top`, past the subtree of `node`;
// null at the end.
inline Node *next_shown_past(const Node *node, const Node *top, bool show_punctuation) {
    while (node != top) {
        if (Node *sister = next_shown_sister(node, show_punctuation)) return sister;
        node = node->mother();
    }
    return nullptr;
}

// The shown node after `node` in document order inside the subtree of `top`; null at the end.
inline Node *next_shown(const Node *node, const Node *top, bool show_punctuation) {
    return node->dtrs() ? node->dtrs() : next_shown_past(node, top, show_punctuation);
}

}  // namespace brindle
