#pragma once
// The copy mode: a tag is copied from the node that is clicked to the node on which "copy" was chosen. Only
// one copy is pending; the click that ends it may come from any tree window.
namespace brindle {

class Node;
class TreeWindow;
class Workbench;

// "copy": the node awaits a tag.
void begin_copy_to(Node &node, TreeWindow &window);

// A click on a node, and one beside all nodes, while a copy is pending.
void copy_from(Node &clicked, TreeWindow &window);
void copy_missed(TreeWindow &window);

// Ends the copy, with its footer.
void end_copy(Workbench &workbench);

}  // namespace brindle
