// "Batch processing".
#include "gui/command_windows.hpp"
#include "gui/events.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

struct Action {
    const char *label;
    ButtonCommand Commands::*command;
    bool same_row;
};

constexpr Action actions[] = {
    {"Filter all nodes through prolog", &Commands::filter_all, false},
    {"Filter root-nodes through prolog", &Commands::filter_root, false},
    {"Let prolog evaluate all nodes", &Commands::evaluate_all, false},
    {"Let prolog evaluate root-nodes", &Commands::evaluate_root, false},
    {"Expand all nodes", &Commands::expand_all, false},
    {"Propose an annotation", &Commands::propose_all, false},
    {"Propose and evaluate results", &Commands::proposetest_all, false},
    {"Undo all edits on tree", &Commands::undo_edits_all, false},
    {"Write selection to file", &Commands::write_selection, false},
    {"Check tree", &Commands::check_all, false},
    {"Uncheck tree", &Commands::uncheck_all, true},
};

constexpr int slider_width = 130;
constexpr tk::Place close_row = tk::new_row(18, 5);

void add_range(TreeWindow &tw, tk::Panel &panel) {
    tw.tree_types_choice = &panel.add_choice("Type of trees:", tk::first_at(),
                                             {"Only checked trees", "Only unchecked trees", "Both"},
                                             value_callback<tk::Choice>(&Commands::tree_types));
    tw.selection_choice = &panel.add_choice("Type of selection:", {}, {"All trees", "Random selection"},
                                            value_callback<tk::Choice>(&Commands::selection_type));
    panel.add_message("Range of trees:", tk::new_row(), true);
    tw.from_slider = &panel.add_slider(
        "From:", close_row, {.min = 1, .max = the_corpus().amount(), .value = 1, .width = slider_width},
        value_callback<tk::Slider>(&Commands::from_slide));
    tw.to_slider = &panel.add_slider(
        "To:    ", close_row,
        {.min = 1, .max = the_corpus().amount(), .value = the_corpus().amount(), .width = slider_width},
        value_callback<tk::Slider>(&Commands::to_slide));
    panel.add_message("Amount of trees in range:", tk::new_row(), true);
    tw.range_amount = &panel.add_message(std::to_string(the_corpus().amount()), {}, true);
}

void add_random_selection(TreeWindow &tw, tk::Panel &panel) {
    tw.random_size_label = &panel.add_message("Size of random selection:", tk::new_row(), true);
    tw.random_size_slider = &panel.add_slider(
        "#", close_row, {.min = 0, .max = the_corpus().amount(), .value = 0, .width = slider_width});
    tw.seed_field = &panel.add_numeric_field("Seed:", close_row, {.min = 0, .value = 1, .shown = 4});
    tw.random_size_label->set_inactive(true);
    tw.random_size_slider->set_inactive(true);
    tw.seed_field->set_inactive(true);
}

}  // namespace

void create_batch_box(TreeWindow &tw) {
    tw.batch_box = &tw.frame->add_command_frame("Batch processing");
    tk::Panel &panel = tw.batch_box->panel();
    add_range(tw, panel);
    add_random_selection(tw, panel);
    panel.add_message("Actions:", tk::new_row(), true);
    for (const Action &action : actions)
        panel.add_button(action.label, action.same_row ? tk::SAME_ROW : close_row,
                         button_callback(action.command));
    tw.abort_button = &panel.add_button("Abort", tk::new_row(), button_callback(&Commands::abort_filter));
    tw.abort_button->set_inactive(true);
    add_cancel(*tw.batch_box);
    panel.set_background_event([](tk::Panel &, const tk::Event &event) {
        if (event.code != tk::CODE_CTRL_C) return false;
        if (!event.negative) interrupt_run();
        return true;
    });
    panel.accept_keystrokes(true);
    fit_with_title(*tw.batch_box);
}

}  // namespace brindle
