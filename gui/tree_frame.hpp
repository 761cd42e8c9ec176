#pragma once
// The frame of a tree window: its button panel and its canvas.
#include "gui/tree_window.hpp"

namespace brindle {

// A new tree window on tree 1: its record, its frame and all its command windows; hidden.
TreeWindow &create_tree_frame(tk::Frame &main_frame);

// The button panel. A corpus of one tree has no items to turn pages, to search and to run a batch.
void create_tree_panel(TreeWindow &tw);

// The three menus, the canvas and its scrollbars; sets sizes and font.
void create_canvas(TreeWindow &tw);

// Makes the frame as large as it starts, or larger if its panel is.
void fit_tree_frame(TreeWindow &tw);

}  // namespace brindle
