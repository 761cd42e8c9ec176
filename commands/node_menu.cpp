// The menu of an unselected node: typing a tag, clearing tags, undoing edits.
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/changes.hpp"

namespace brindle {

namespace {

// Applies the function to every node of the shown tree, its counts those of that tree, and repaints.
template <class Function>
void with_tree(TreeWindow &tw, Function &&function) {
    TreeEntry *tree = current_tree(tw);
    if (!tree) return;
    TreeCheckedScope scope(*tree);
    do_with(tree->root, function);
    tree_GUI_repaint(tw);
}

// The flag of the tree that holds the node.
bool flag_of_tree(const Node &node) {
    const TreeEntry *tree = tree_of(&node);
    return tree && tree->checked;
}

void edit_node(TreeWindow &tw, Node &node) {
    tk::CommandFrame &editor = *tw.tag_editor;
    editor.hide();
    auto &field = static_cast<tk::TextField &>(*editor.panel().first_item());
    set_node(field, &node);
    field.set_value(text_of(node.sem));
    editor.set_title(node.syn->view());
    position_frame_from_menu(editor, *tw.annotation_menu, tw);
}

void clear_node(TreeWindow &tw, Node &node) {
    TreeCheckedScope scope(flag_of_tree(node));
    clear(&node, &tw);
}

void clear_tree(TreeWindow &tw, Node &) {
    with_tree(tw, [](Node *node) { clear(node, nullptr); });
}

void undo_node(TreeWindow &tw, Node &node) {
    TreeCheckedScope scope(flag_of_tree(node));
    undo_last(&node, &tw);
}

void undo_all_node(TreeWindow &tw, Node &node) {
    TreeCheckedScope scope(flag_of_tree(node));
    if (undo_all(&node)) tree_GUI_repaint(tw);
}

void undo_all_tree(TreeWindow &tw, Node &) {
    with_tree(tw, [](Node *node) { undo_all(node); });
}

}  // namespace

void install_node_menu(Commands &table) {
    table.edit_node = edit_node;
    table.clear_node = clear_node;
    table.clear_tree = clear_tree;
    table.undo_node = undo_node;
    table.undo_all_node = undo_all_node;
    table.undo_all_tree = undo_all_tree;
}

}  // namespace brindle
