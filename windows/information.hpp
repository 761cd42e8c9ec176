#pragma once
// What the statistics know about the part of a node that was clicked.
class QPoint;

namespace brindle {

class Node;
class TreeWindow;

// Shows it page by page; with `mothers` what is known of the mothers of such nodes. `place` is on the screen.
void show_information(TreeWindow &window, Node &node, bool mothers, QPoint place);

}  // namespace brindle
