#include "display/selection.hpp"

#include "model/traversal.hpp"

namespace brindle {

int do_select(Node *node) {
    node->selected = true;
    return 1;
}

int do_unselect(Node *node) {
    node->selected = false;
    return 1;
}

namespace {

// All daughters in the list that starts at `dtrs` (null: none) and all their descendants.
void set_subtrees(Node *dtrs, int (*action)(Node *)) {
    if (dtrs) do_with(dtrs, action);
}

}  // namespace

void select_click(Node *node) {
    const bool mother_selected = node->mother && node->mother->selected;
    const bool dtr_selected = node->dtrs && node->dtrs->selected;
    const bool dtr_unselected = node->dtrs && !node->dtrs->selected;

    if (!node->selected && mother_selected) {
        set_subtrees(node->mother->dtrs, do_select);
    } else if (!node->selected) {
        do_select(node);
        set_subtrees(node->dtrs, do_unselect);
    } else if (!mother_selected && dtr_unselected) {
        set_subtrees(node->dtrs, do_select);
    } else if (!mother_selected) {
        do_unselect(node);
        set_subtrees(node->dtrs, do_unselect);
    } else if (dtr_selected) {
        set_subtrees(node->dtrs, do_unselect);
    } else {
        set_subtrees(node->mother->dtrs, do_unselect);
    }
}

}  // namespace brindle
