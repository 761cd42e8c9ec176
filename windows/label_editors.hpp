#pragma once
// "edit", and "edit syntax" of one node: the semantic and the syntactic tag editor.
namespace brindle {

class Node;
class Requestor;
class TreeWindow;

// The editors of a tree window, which owns them.
Requestor *new_tag_editor(TreeWindow &owner);
Requestor *new_syntactic_tag_editor(TreeWindow &owner);

// Opens them on a node, with the tag, or the category, that it has.
void edit_tag(TreeWindow &window, Node &node);
void edit_category(TreeWindow &window, Node &node);

}  // namespace brindle
