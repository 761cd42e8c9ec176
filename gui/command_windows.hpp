#pragma once
// The command windows of a tree window. Each function makes one of them, hidden, and puts it and its items
// into the TreeWindow's fields.
#include "gui/commands_table.hpp"
#include "gui/tree_window.hpp"

namespace brindle {

// All of them, in the order of their making.
void create_command_windows(TreeWindow &tw);

void create_tag_editor(TreeWindow &tw);
void create_syntax_editor(TreeWindow &tw);
void create_syn_tag_editor(TreeWindow &tw);
void create_file_requestor(TreeWindow &tw);
void create_pred_requestor(TreeWindow &tw);
void create_latexfile_requestor(TreeWindow &tw);
void create_tag_selector(TreeWindow &tw, int kind);  // 5 category, 3 lexical item
void create_size_controller(TreeWindow &tw);
void create_search_box(TreeWindow &tw);
void create_batch_box(TreeWindow &tw);
void create_results_requestor(TreeWindow &tw);

// Hangs the TreeWindow on the frame, its panels and all their items.
void set_window_everywhere(tk::Frame &frame, TreeWindow &tw);

// Fits the frame to its panel, and makes it wide enough for its title.
void fit_with_title(tk::CommandFrame &frame);

// Hides a command frame and takes its pushpin out.
void dismiss(tk::CommandFrame &frame);

// A "Cancel" button that hides its own frame.
tk::Button &add_cancel(tk::CommandFrame &frame, tk::Place place = {});

// "Ok" and "Cancel" of a requestor, on a new row: "Ok" does what Return in the field does.
void add_ok_and_cancel(tk::CommandFrame &frame, tk::TextField &field, FieldCommand handler);

// Callbacks that find the window of their item and call an entry of the command table.
tk::Button::Callback button_callback(ButtonCommand Commands::*command);

template <class Item>
auto value_callback(ValueCommand Commands::*command) {
    return [command](Item &item, auto value) {
        (commands.*command)(window_of(item), item, static_cast<int>(value));
    };
}

// A handler for a requestor's field that calls an entry of the command table.
template <FieldCommand Commands::*command>
void call_field_command(TreeWindow &tw, tk::TextField &field) {
    (commands.*command)(tw, field);
}

}  // namespace brindle
