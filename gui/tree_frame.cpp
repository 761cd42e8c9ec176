#include "gui/tree_frame.hpp"

#include <algorithm>

#include "gui/command_windows.hpp"
#include "gui/commands_table.hpp"
#include "gui/drawing.hpp"
#include "gui/events.hpp"
#include "gui/menus.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

constexpr tk::Size start_size{525, 500};
constexpr int panel_height = 60;
constexpr int slider_width = 260;

struct PanelButton {
    const char *label;
    ButtonCommand Commands::*command;
    tk::Button *TreeWindow::*field;  // null: none
    bool needs_several_trees;
};

constexpr PanelButton panel_buttons[] = {
    {"Close", &Commands::quit, nullptr, false},
    {"Save", &Commands::save, nullptr, false},
    {"Save as", &Commands::save_as, &TreeWindow::save_as_button, false},
    {"Next", &Commands::next, &TreeWindow::next_button, true},
    {"Previous", &Commands::previous, &TreeWindow::previous_button, true},
    {"Propose", &Commands::propose, nullptr, false},
    {"Search", &Commands::search_win, nullptr, true},
    {"Batch", &Commands::pop_batch_box, nullptr, true},
};

void add_slider(TreeWindow &tw) {
    tw.tree_slider = &tw.panel->add_slider(
        "Tree #", {.new_row = true},
        {.min = 1, .max = the_corpus().amount(), .value = tw.tree_number + 1, .width = slider_width},
        value_callback<tk::Slider>(&Commands::current_proc));
}

}  // namespace

TreeWindow &create_tree_frame(tk::Frame &main_frame) {
    TreeWindow &tw = add_tree_window();
    tw.main_frame = &main_frame;
    tw.frame = &main_frame.add_frame(the_corpus().name);
    tw.frame->show_footer(true);
    tw.frame->set_footer(the_corpus().amount() == 0 ? "This corpus has no trees." : "");
    tw.frame->set_key(Key::tree_number, &tw.tree_number);
    tw.notice = std::make_unique<tk::Notice>(*tw.frame);
    create_command_windows(tw);
    return tw;
}

void create_tree_panel(TreeWindow &tw) {
    tw.panel = &tw.frame->add_panel();
    const bool several = the_corpus().amount() > 1;
    for (const PanelButton &entry : panel_buttons) {
        if (entry.needs_several_trees && !several) continue;
        tk::Button &button = tw.panel->add_button(entry.label, {}, button_callback(entry.command));
        if (entry.field) tw.*entry.field = &button;
    }
    if (several) {
        tw.previous_button->set_inactive(true);
        add_slider(tw);
    }
    tw.check_box =
        &tw.panel->add_check_box("Check:", {}, false, value_callback<tk::CheckBox>(&Commands::checked));
    tw.check_box->set_inactive(the_corpus().amount() == 0);
    set_window_everywhere(*tw.frame, tw);
    tw.frame->set_on_close([&tw](tk::Frame &frame) {
        auto *close = dynamic_cast<tk::Button *>(tw.panel->first_item());
        if (close && !frame.busy()) close->press();
    });
    tw.panel->fit();
    const tk::Size size = tw.panel->size();
    tw.panel->set_size({0, std::max(panel_height, size.h)});
}

void create_canvas(TreeWindow &tw) {
    tw.annotation_menu = tag_menu(tw);
    tw.prefs_menu = preferences(tw);
    tw.subtrees_menu = subtree_menu(tw);
    tw.canvas = &tw.frame->add_canvas();
    tw.hscrollbar = &tw.canvas->hscrollbar();
    tw.vscrollbar = &tw.canvas->vscrollbar();
    set_window(*tw.canvas, tw);
    init_GC(tw);
    tw.canvas->set_event_callback(events);
    tw.canvas->set_repaint([&tw](tk::Canvas &, tk::Painter &painter) { canvas_repaint_proc(tw, painter); });
    tw.canvas->set_map_lines([&tw] { return node_lines(tw); });
}

void fit_tree_frame(TreeWindow &tw) {
    tw.frame->set_size({std::max(start_size.w, tw.panel->size().w), start_size.h});
}

}  // namespace brindle
