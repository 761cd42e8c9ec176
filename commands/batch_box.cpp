#include "commands/batch_box.hpp"

#include <fmt/format.h>

#include "commands/prolog_window.hpp"
#include "commands/subjects.hpp"
#include "gui/current_run.hpp"
#include "gui/dialogs.hpp"
#include "gui/events.hpp"
#include "gui/the_corpus.hpp"
#include "toolkit/display.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

namespace {

void deactivate_random_slide(TreeWindow &tw, bool inactive) {
    tw.random_size_label->set_inactive(inactive);
    tw.random_size_slider->set_inactive(inactive);
    tw.seed_field->set_inactive(inactive);
}

bool takes_all_trees(const TreeWindow &tw) {
    return tw.selection_choice->value() == 0;
}

void set_nr_of_appropriate_trees(int number, TreeWindow &tw) {
    tw.range_amount->set_text(std::to_string(number));
    tw.random_size_slider->set_max(number);
}

void recount(TreeWindow &tw) {
    set_nr_of_appropriate_trees(nr_of_appropriate_trees(the_corpus(), choice_of(tw)), tw);
}

void set_actions_inactive(TreeWindow &tw, bool inactive) {
    for (const auto &item : tw.batch_box->panel().items()) item->set_inactive(inactive);
    tw.abort_button->set_inactive(!inactive);
}

void tree_types(TreeWindow &tw, tk::Item &, int) {
    recount(tw);
}

void selection_type(TreeWindow &tw, tk::Item &, int value) {
    deactivate_random_slide(tw, value == 0);
}

// The range's end cannot come before its start; a slider needs two values, so the last tree leaves it one
// more.
void from_slide(TreeWindow &tw, tk::Item &, int value) {
    tw.to_slider->set_min(value == the_corpus().amount() ? the_corpus().amount() - 1 : value);
    if (value == the_corpus().amount()) tw.to_slider->set_value(the_corpus().amount());
    recount(tw);
}

void to_slide(TreeWindow &tw, tk::Item &, int value) {
    if (value < tw.from_slider->value())
        tw.to_slider->set_value(tw.from_slider->value());
    else
        tw.from_slider->set_max(value);
    recount(tw);
}

void pop_batch_box(TreeWindow &tw, tk::Button &button) {
    recount(tw);
    tw.batch_box->set_pinned(true);
    position_frame_from_button(*tw.batch_box, button, tw);
}

void abort_filter(TreeWindow &tw, tk::Button &) {
    stop_batch(tw);
}

}  // namespace

SelectionChoice choice_of(const TreeWindow &tw) {
    SelectionChoice choice;
    choice.types = static_cast<TreeTypes>(tw.tree_types_choice->value());
    choice.from = tw.from_slider->value();
    choice.to = tw.to_slider->value();
    choice.random = !takes_all_trees(tw);
    choice.size = tw.random_size_slider->value();
    choice.seed = static_cast<unsigned>(tw.seed_field->value());
    return choice;
}

void batch_init(TreeWindow &tw) {
    the_prolog().drop_claim();
    all_frames_busy(*tw.main_frame, true);
    tw.batch_box->set_busy(false);
    set_actions_inactive(tw, true);
    tw.canvas->clear(tw.gc.background);
    tw.batch_selection = select_trees(the_corpus(), choice_of(tw));
}

void stop_batch(TreeWindow &tw) {
    end_run();
    tw.batch_selection.clear();
    all_frames_busy(*tw.main_frame, false);
    set_actions_inactive(tw, false);
    if (takes_all_trees(tw)) deactivate_random_slide(tw, true);
    recount(tw);
    show_foot(*tw.frame, "");
    if (current_tree(tw)) show_nr(tw.tree_number, tw);  // the canvas was cleared
}

void Progress::step() {
    ++taken_;
    const auto now = Clock::now();
    if (text_.empty() || now - shown_ < std::chrono::milliseconds(100)) return;
    shown_ = now;
    show_foot(*tw_.frame, fmt::format("{} {} of {}", text_, taken_, tw_.batch_selection.size()));
}

void enter_tree(int tree, TreeWindow &tw) {
    tw.tree_number = tree;
    if (tw.tree_slider) tw.tree_slider->set_value(tree + 1);
}

void run_in_one_go(TreeWindow &tw, std::string footer, const std::function<int(Run &)> &action) {
    batch_init(tw);
    if (!footer.empty()) show_foot(*tw.frame, footer);
    tk::flush_display();
    Progress progress(tw, std::move(footer));
    const auto take = [&](int tree) {
        enter_tree(tree, tw);
        progress.step();
    };
    Run run(the_corpus(), tw.batch_selection, {.dispatch = dispatch_in_run, .take = take});
    const int number = begin_run(tw, [&run] { run.stop(); });
    const int last = action(run);
    if (!run_goes_on(number)) return;
    if (last >= 0) enter_tree(last, tw);
    stop_batch(tw);
}

void install_batch_box(Commands &table) {
    table.tree_types = tree_types;
    table.selection_type = selection_type;
    table.from_slide = from_slide;
    table.to_slide = to_slide;
    table.pop_batch_box = pop_batch_box;
    table.abort_filter = abort_filter;
    table.stop_batch = stop_batch;
    tk::set_on_interrupt(interrupt_run);
}

}  // namespace brindle
