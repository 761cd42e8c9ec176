#include "editor/replacement.hpp"

#include "corpus/readtrees.hpp"
#include "editor/bracketing.hpp"
#include "model/forest.hpp"
#include "model/request.hpp"
#include "model/traversal.hpp"
#include "stats/changes.hpp"
#include "stats/links.hpp"

namespace brindle {

std::string replace_subtree(int tree, Node *node, std::string_view text) {
    std::string message = check_bracketing(text);
    if (!message.empty()) return message;
    set_checked(tree, false);
    const TreeCheckedScope scope(false);
    TreeEntry scratch;
    readtree(scratch, text);
    delete_and_attach(node, scratch.root, tree);
    ++MODIFIED;
    return "";
}

bool is_in_scope(const Node *top, const Node *n) {
    while (n && n != top) n = n->mother;
    return n;
}

void delete_and_attach(Node *old, Node *fresh, int tree) {
    for (Node **awaited : {&FILTER_NODE, &EVAL_NODE})
        if (is_in_scope(old, *awaited)) *awaited = nullptr;
    fresh->mother = old->mother;
    fresh->sister = old->sister;
    fresh->position = old->position;
    delete_parent(old);
    old->sister = nullptr;  // the walks below stay inside the old subtree
    if (old->dtrs) do_with(old->dtrs, delete_parent);
    do_with(old, remove_links);
    if (Node *mother = old->mother) {
        Node **place = &mother->dtrs;
        while (*place != old) place = &(*place)->sister;
        *place = fresh;
        parent(fresh);
    } else {
        forest[static_cast<std::size_t>(tree)].root = fresh;
        forget_root(old);
        register_root(fresh, tree);
    }
    do_with(old, delete_node);
}

void delete_node(Node *node) {
    handle_undo(node->undo_sem, nullptr);
    handle_undo(node->orig_sem, nullptr);
    delete_old_label(node->sem, LabelKind::SEM);
    delete_old_label(node->syn, category_kind(node));
    if (node->lex) delete_lex_label(node->lex);
    release_node(node);
}

}  // namespace brindle
