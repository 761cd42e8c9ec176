#pragma once
// The data that windows, panels, items and menus carry, under numbered keys, and typed access to it.
#include "toolkit/object.hpp"

namespace brindle::tk {
class Button;
class CommandFrame;
class Frame;
class TextField;
class TextWindow;
}  // namespace brindle::tk

namespace brindle {

class Node;
struct TreeWindow;

enum class Key : int {
    tree_window = 98,     // on everything that belongs to a tree window: its TreeWindow
    frame_to_hide = 100,  // on "Cancel" buttons and selector lists: the command frame
    tree_number = 104,    // on a tree frame: the cell with the shown tree's number; on a selector list: the
                          // number of the tree that held its node when it was filled
    query_item = 108,     // on the main frame and the output window: the "query:  ?-" field
    output_window = 109,  // on the main frame: the output window
    node = 111,           // on the menus and fields of a node: the node
    edit_button = 112,    // on the main frame and the tree frames: the main window's "Edit" button
    kind = 113,         // on a selector's panel, list and buttons: 5 category, 3 word; on the buttons of the
                        // search box: the action, 114, 115 or 116
    text_field = 117,   // on a requestor's "Ok": its text field
    handler = 118,      // on a requestor's "Ok": what to call with that field
    edited_tree = 789,  // on a syntax editor: the number of the tree it holds, -1: none
};

// What a requestor calls when its field is confirmed.
using FieldCommand = void (*)(TreeWindow &, tk::TextField &);

// The tree window that the object belongs to. REQUIRES: it belongs to one.
TreeWindow &window_of(const tk::Object &object);
void set_window(tk::Object &object, TreeWindow &tw);

// The node that a menu was opened on or that a field or list works on; null: none.
Node *node_of(const tk::Object &object);
void set_node(tk::Object &object, Node *node);

// A small number under a key; -1 when there is none.
int number_of(const tk::Object &object, Key key);
void set_number(tk::Object &object, Key key, int number);

// The frame that a "Cancel" button or a selector list hides.
tk::CommandFrame &frame_to_hide(const tk::Object &object);
void set_frame_to_hide(tk::Object &object, tk::CommandFrame &frame);

// The handler of a requestor, and the field it is called with; null: none.
FieldCommand handler_of(const tk::Object &object);
void set_handler(tk::Object &object, FieldCommand handler);
tk::TextField *text_field_of(const tk::Object &object);
void set_text_field(tk::Object &object, tk::TextField &field);

// The parts of the main window, found from the main frame.
tk::TextField &query_item(const tk::Frame &main_frame);
tk::TextWindow &output_window(const tk::Frame &main_frame);
tk::Button &edit_button(const tk::Frame &frame);

}  // namespace brindle
