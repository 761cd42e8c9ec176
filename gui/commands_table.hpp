#pragma once
// What buttons, menus, fields and keys do: a table of commands that the windows are wired to. gui/ knows no
// command; commands/ fills the whole table at start-up, before a window is opened.
#include "gui/keys.hpp"

namespace brindle::tk {
struct Event;
class Button;
class Item;
class MenuItem;
class TextField;
}  // namespace brindle::tk

namespace brindle {

using ButtonCommand = void (*)(TreeWindow &, tk::Button &);
using ValueCommand = void (*)(TreeWindow &, tk::Item &, int value);  // of a slider, choice or check box
using NodeCommand = void (*)(TreeWindow &, Node &);                  // of a menu opened on a node
using EntryCommand = void (*)(TreeWindow &, tk::MenuItem &);         // reads the chosen entry's label
using ListCommand = void (*)(TreeWindow &, tk::Item &);              // the item carries the selector's kind

struct Commands {
    // The main window.
    void (*qt)(tk::Button &) = nullptr;
    void (*commando)(tk::TextField &) = nullptr;
    // The panel of a tree window.
    ButtonCommand quit = nullptr;
    ButtonCommand save = nullptr;
    ButtonCommand save_as = nullptr;
    ButtonCommand next = nullptr;
    ButtonCommand previous = nullptr;
    ButtonCommand propose = nullptr;
    ButtonCommand search_win = nullptr;
    ButtonCommand pop_batch_box = nullptr;
    ValueCommand current_proc = nullptr;
    ValueCommand checked = nullptr;
    // The menu of an unselected node.
    NodeCommand edit_node = nullptr;
    NodeCommand tag_select = nullptr;
    NodeCommand copy_node = nullptr;
    NodeCommand clear_node = nullptr;
    NodeCommand clear_tree = nullptr;
    NodeCommand undo_node = nullptr;
    NodeCommand undo_all_node = nullptr;
    NodeCommand undo_all_tree = nullptr;
    NodeCommand filter_node = nullptr;
    // The menu of a selected node.
    NodeCommand edit_syntax = nullptr;
    NodeCommand evaluate = nullptr;
    NodeCommand show_expansion = nullptr;
    NodeCommand make_expansions = nullptr;
    NodeCommand set_predicate = nullptr;
    NodeCommand show_latex_requestor = nullptr;
    // The menu of empty canvas.
    EntryCommand styles = nullptr;
    EntryCommand sizes = nullptr;
    EntryCommand controls = nullptr;
    EntryCommand show_punc = nullptr;
    // Requestors; `save_to_name` is what "Save as" puts into the file requestor.
    FieldCommand which_save_as = nullptr;
    FieldCommand propose_results_to_name = nullptr;
    FieldCommand set_pred = nullptr;
    FieldCommand make_latexfile = nullptr;
    ValueCommand auginfo = nullptr;
    // The size controller, the selectors, the search box.
    ButtonCommand set_sizes = nullptr;
    ButtonCommand reset_sizes = nullptr;
    ListCommand select_tag = nullptr;
    ListCommand where = nullptr;
    ButtonCommand search_node = nullptr;
    // The batch box.
    ValueCommand tree_types = nullptr;
    ValueCommand selection_type = nullptr;
    ValueCommand from_slide = nullptr;
    ValueCommand to_slide = nullptr;
    ButtonCommand filter_all = nullptr;
    ButtonCommand filter_root = nullptr;
    ButtonCommand evaluate_all = nullptr;
    ButtonCommand evaluate_root = nullptr;
    ButtonCommand expand_all = nullptr;
    ButtonCommand propose_all = nullptr;
    ButtonCommand proposetest_all = nullptr;
    ButtonCommand undo_edits_all = nullptr;
    ButtonCommand write_selection = nullptr;
    ButtonCommand check_all = nullptr;
    ButtonCommand uncheck_all = nullptr;
    ButtonCommand abort_filter = nullptr;
    void (*stop_batch)(TreeWindow &) = nullptr;
    // The syntax editor and the syntactic-tag editor.
    ButtonCommand read_editor = nullptr;
    ButtonCommand edit_help = nullptr;
    ButtonCommand cancel_editor = nullptr;
    FieldCommand syn_tag = nullptr;
    // The ADJUST button on a node of the canvas.
    void (*displayinf)(TreeWindow &, Node &, const tk::Event &) = nullptr;
};

extern Commands commands;  // filled by commands/ at start-up, read by the callbacks of all windows

}  // namespace brindle
