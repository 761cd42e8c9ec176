#pragma once
// Telling the user something, and showing what has changed. Messages may hold several lines. "silent": the
// notice comes without the bell.
#include <string_view>
#include <vector>

#include "gui/tree_window.hpp"

namespace brindle {

// Shows the message in the window's notice with the button "Ok"; returns when it is answered.
void prompt(tk::Notice &notice, std::string_view message, bool silent);

// The same on a panel.
void prompt_at_panel(tk::Panel &panel, std::string_view message, bool silent);

// Shows the node's tree if the window shows another, brings the node into view and shows a notice pointing at
// it, with the button "Ok".
void prompt_at_node(const Node *node, std::string_view message, TreeWindow &tw, bool silent);

// Lays the window's tree out unless it is.
void check_active_GUI(TreeWindow &tw);

// Lays the window's tree out and draws it again when the loop is next idle. So do all other windows: what has
// changed may be in the tree that one of them shows. Positions are as if it had been done at once.
void tree_GUI_repaint(TreeWindow &tw);

// From now on every change of the corpus repaints the windows that show its tree. Whoever ends a run repaints
// after it.
void repaint_on_changes();

// Shows that tree (0-based) from its upper left corner and makes "Previous" and "Next" fit.
void show_nr(int tree, TreeWindow &tw);

// Scrolls so that the canvas point is in view, then repaints.
void make_visible(int x, int y, TreeWindow &tw);

// A notice pointing at the node, which is brought into view first as prompt_at_node does; the place of `spec`
// is set here. Returns the answer.
int notice_at_node(const Node *node, tk::NoticeSpec spec, TreeWindow &tw);

// Sets the left footer; "" clears it.
void show_foot(tk::Frame &frame, std::string_view text);

// Marks the main frame, its subframes and their subframes busy or idle.
void all_frames_busy(tk::Frame &main_frame, bool busy);

// Show a frame where the menu was opened, or below a button or another item.
void position_frame_from_menu(tk::Frame &frame, const tk::Menu &menu, TreeWindow &tw);
void position_frame_from_button(tk::Frame &frame, const tk::Item &button, TreeWindow &tw);
void position_frame_from_batchbox_button(tk::Frame &frame, const tk::Item &button, TreeWindow &tw);

// The callback of every requestor's "Ok": calls the button's handler with its text field.
void text_ok_function(tk::Button &button);

}  // namespace brindle
