#include "stats/changes.hpp"

#include <string>
#include <vector>

#include "model/error.hpp"
#include "model/forest.hpp"
#include "model/frontend.hpp"
#include "model/limits.hpp"
#include "model/text.hpp"
#include "model/traversal.hpp"
#include "stats/change_ahead.hpp"
#include "stats/links.hpp"

namespace brindle {
namespace {

Label *label_of(std::string_view text) {
    if (text.empty()) return nullptr;
    if (text.find(' ') == std::string_view::npos) return intern(text);
    std::string copy(text);
    space2underscore(copy);
    return intern(copy);
}

// The nodes whose contexts name the node's labels: its daughters, the rightmost first, and the node itself.
std::vector<Node *> concerned_with(Node *node) {
    std::vector<Node *> nodes;
    nodes.reserve(static_cast<std::size_t>(node->nr_of_dtrs) + 1);
    if (node->dtrs) do_with_sisters(node->dtrs, [&](Node *daughter) { nodes.push_back(daughter); });
    nodes.push_back(node);
    return nodes;
}

// Links the node's labels again and records its mother context and its daughters', after one label has
// changed.
void record(Node *node, LabelEntry *syn, LabelEntry *sem) {
    link_labels(node, syn, sem, node->lex ? word_entry(node) : nullptr);
    change_contexts(concerned_with(node), ContextChange::record);
}

void give_tag(Node *node, Label *tag) {
    remove_label(node);
    LabelEntry *t = storelabel(tag, LabelKind::SEM);
    node->sem = tag;
    record(node, category_entry(node), t);
}

}  // namespace

void new_label(Node *node, std::string_view tag, TreeView *view) {
    if (tag.size() >= MAXSEM) error("MAXSEM as defined in decndef too low!");
    store_change(node, tag);
    if (view) frontend->tree_GUI_repaint(view);
}

void change_cat(Node *node, std::string_view category, TreeView *view) {
    if (category.size() >= MAXSYN) error("MAXSYN as defined in decndef too low!");
    do_cat_change(node, category);
    if (view) frontend->tree_GUI_repaint(view);
}

void store_change(Node *node, std::string_view tag) {
    fetch_change_ahead(node, tag);
    give_tag(node, label_of(tag));
}

void do_cat_change(Node *node, std::string_view category) {
    Label *name = label_of(category);
    if (!name) return;
    remove_syn_cat(node);
    LabelEntry *c = storelabel(name, category_kind(node));
    node->syn = name;
    record(node, c, tag_entry(node));
}

void remove_label(Node *node) {
    handle_undo(node->undo_sem, node->sem);
    node->undo_sem = node->sem;
    if (!node->changed) {
        ++MODIFIED;
        node->changed = true;
        handle_undo(nullptr, node->sem);
        if (node->sem) node->orig_sem = node->sem;
    }
    remove_parents(node);
    remove_links(node);
    delete_old_label(node->sem, LabelKind::SEM);
    node->sem = nullptr;
}

void remove_syn_cat(Node *node) {
    if (!node->changed) ++MODIFIED;
    remove_parents(node);
    remove_links(node);
    delete_old_label(node->syn, category_kind(node));
    node->syn = nullptr;
}

void remove_parents(Node *node) {
    change_contexts(concerned_with(node), ContextChange::withdraw);
}

bool undo_last(Node *node, TreeView *view) {
    if (!node->changed && !node->undo_sem) return false;
    give_tag(node, node->undo_sem);
    if (view) frontend->tree_GUI_repaint(view);
    return true;
}

bool undo_all(Node *node) {
    if (!node->changed) return false;
    --MODIFIED;
    give_tag(node, node->orig_sem);
    handle_undo(node->orig_sem, nullptr);
    node->orig_sem = nullptr;
    node->changed = false;
    return true;
}

void clear(Node *node, TreeView *view) {
    if (node->sem) new_label(node, "", view);
}

void reset(Node *node) {
    handle_undo(node->undo_sem, nullptr);
    handle_undo(node->orig_sem, nullptr);
    node->undo_sem = node->orig_sem = nullptr;
    node->changed = false;
}

void reset_edits() {
    for (TreeEntry &tree : forest) for_each_in_subtree(tree.root, reset);
    MODIFIED = 0;
}

void set_checked(int t, bool checked) {
    TreeEntry &tree = forest[static_cast<std::size_t>(t)];
    if (tree.checked == checked) return;
    tree.checked = checked;
    TreeCheckedScope scope(checked);
    adjust_checked_amounts(tree.root);
}

}  // namespace brindle
