#pragma once
// The tree on its canvas: the window's font and sizes, the layout in its terms, the drawing.
#include <vector>

#include "gui/tree_window.hpp"
#include "toolkit/font.hpp"

namespace brindle {

// The start font, and the two graphics contexts in the colours of the output window.
void init_GC(TreeWindow &tw);

// Gives the window the font of its font_name and font_scale. Without such a font: the message
// "\nCannot use font: %s!\n" on standard error and the font of labels and buttons in its place.
void find_window_font(TreeWindow &tw);

// Lays the shown tree out with the window's font and sizes; fits the canvas's scrollable size to it and sets
// "Check:". Nothing in a corpus without trees.
void lay_out_current_tree(TreeWindow &tw);

// Whether the window's layout is that of the shown tree.
bool is_laid_out(const TreeWindow &tw);

// Where a node of the shown tree stands on the canvas: the centre of its texts, the baseline of its category.
// A hidden node has its level alone.
tk::Point place_of(const Node *node, TreeWindow &tw);

// The node at a place of the canvas, or null. Sets the window's info_mode to the line that was hit. REQUIRES:
// is_laid_out.
Node *nodefind(TreeWindow &tw, tk::Point at);

// The canvas's repaint: lays out and draws everything that is in view.
void canvas_repaint_proc(TreeWindow &tw, tk::Painter &painter);

// The visible nodes for the screen map.
std::vector<tk::MapLine> node_lines(TreeWindow &tw);

}  // namespace brindle
