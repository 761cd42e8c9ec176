// The menu of an unselected node: typing a tag, clearing tags, undoing edits.
#include "commands/subjects.hpp"
#include "edit/change.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "model/traversal.hpp"

namespace brindle {

namespace {

// Applies the function to every node of the shown tree.
template <class Function>
void with_tree(TreeWindow &tw, Function &&function) {
    if (const Tree *tree = current_tree(tw)) do_with(tree->root, function);
}

void edit_node(TreeWindow &tw, Node &node) {
    tk::CommandFrame &editor = *tw.tag_editor;
    editor.hide();
    auto &field = static_cast<tk::TextField &>(*editor.panel().first_item());
    set_node(field, &node);
    field.set_value(text_of(node.sem()));
    editor.set_title(node.syn()->view());
    position_frame_from_menu(editor, *tw.annotation_menu, tw);
}

void clear_node(TreeWindow &, Node &node) {
    clear(the_corpus(), &node);
}

void clear_tree(TreeWindow &tw, Node &) {
    with_tree(tw, [](Node *node) { clear(the_corpus(), node); });
}

void undo_node(TreeWindow &, Node &node) {
    undo_last(the_corpus(), &node);
}

void undo_all_node(TreeWindow &, Node &node) {
    undo_all(the_corpus(), &node);
}

void undo_all_tree(TreeWindow &tw, Node &) {
    with_tree(tw, [](Node *node) { undo_all(the_corpus(), node); });
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
