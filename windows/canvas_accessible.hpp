#pragma once
// The canvas for those to whom the screen is read aloud: a tree whose items are the shown nodes, each named
// by its category, tag and word. Only nodes that are asked for get an interface.

namespace brindle {

class Canvas;

// Canvases are asked about in this way from now on. May be called often.
void install_canvas_accessibility();

// Tells readers of the screen which node keys act on now.
void tell_focus_node(Canvas &canvas);

}  // namespace brindle
