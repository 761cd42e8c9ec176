#include "display/selection.hpp"

#include "model/traversal.hpp"

namespace brindle {
namespace {

// All that lies below the node.
void select_below(Node *node, bool selected) {
    for (Node *n = node->dtrs(); n; n = next_in_document(n, node)) n->select(selected);
}

}  // namespace

void select_click(Node *node) {
    const bool mother_selected = node->mother() && node->mother()->selected();
    const bool dtr_selected = node->dtrs() && node->dtrs()->selected();
    const bool dtr_unselected = node->dtrs() && !node->dtrs()->selected();

    if (!node->selected() && mother_selected) {
        select_below(node->mother(), true);
    } else if (!node->selected()) {
        node->select(true);
        select_below(node, false);
    } else if (!mother_selected && dtr_unselected) {
        select_below(node, true);
    } else if (!mother_selected) {
        node->select(false);
        select_below(node, false);
    } else if (dtr_selected) {
        select_below(node, false);
    } else {
        select_below(node->mother(), false);
    }
}

Node *first_selected(Node *root) {
    for (Node *node = root; node; node = next_in_document(node, root))
        if (node->selected()) return node;
    return nullptr;
}

}  // namespace brindle
