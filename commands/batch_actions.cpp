// The actions of the batch box that work in one go.
#include <fmt/format.h>

#include "base/output_file.hpp"
#include "commands/batch_box.hpp"
#include "commands/formulas.hpp"
#include "commands/subjects.hpp"
#include "corpus/saving.hpp"
#include "gui/command_windows.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "propose/report.hpp"
#include "propose/selection_writer.hpp"

namespace brindle {

namespace {

void expand_trees(TreeWindow &tw, tk::Button &) {
    run_in_one_go(tw, "Expanding away...", [&tw](Run &run) {
        return brindle::expand_all(
            run, [&tw](const ExpansionError &error) { show_error(error, tw); }, show_hidden_in(tw));
    });
}

void propose_trees(TreeWindow &tw, tk::Button &) {
    run_in_one_go(tw, "Proposing away...", brindle::propose_all);
}

void undo_edits_all(TreeWindow &tw, tk::Button &) {
    run_in_one_go(tw, "", brindle::undo_edits_all);
}

void check_trees(TreeWindow &tw, tk::Button &) {
    run_in_one_go(tw, "Checking trees...", brindle::check_all);
}

void uncheck_trees(TreeWindow &tw, tk::Button &) {
    run_in_one_go(tw, "Unchecking trees...", brindle::uncheck_all);
}

void proposetest_all(TreeWindow &tw, tk::Button &button) {
    position_frame_from_batchbox_button(*tw.results_requestor, button, tw);
}

// Whether the file can be opened for writing; says so if not.
bool can_be_opened(const std::string &name, TreeWindow &tw) {
    const OutputFile probe(name);
    if (!probe.ok()) prompt(*tw.notice, fmt::format("Error: Can't open {} for writing", name), false);
    return probe.ok();
}

void tell_of_failed_write(const WriteFault &fault, TreeWindow &tw) {
    prompt(*tw.notice, fmt::format("Cannot write to:\n{}\n{}", fault.name, fault.reason), false);
}

void propose_results_to_name(TreeWindow &tw, tk::TextField &field) {
    const std::string name = field.value();
    OutputFile file(name);
    if (!file.ok()) {
        prompt(*tw.notice, fmt::format("Error: Can't open {} for writing", name), false);
        return;
    }
    dismiss(*tw.results_requestor);
    const SelectionChoice choice = choice_of(tw);
    std::string report;
    run_in_one_go(tw, "Proposing away, and evaluating results...", [&](Run &run) {
        int last = -1;
        report = propose_and_evaluate(run, choice, last);
        return last;
    });
    if (!(file.write(report) && file.commit()) && open_window(&tw))
        tell_of_failed_write({name, file.error()}, tw);
}

void save_selection_to_name(TreeWindow &tw, tk::TextField &field) {
    const std::string name = field.value();
    if (!can_be_opened(name, tw)) return;
    dismiss(*tw.file_requestor);
    const auto format = static_cast<CorpusFormat>(tw.format_choice->value());
    WriteFault fault;
    run_in_one_go(tw, fmt::format("Writing selection to {}....", name), [&](Run &run) {
        int last = -1;
        const auto evaluate = [&](Node *root) { return evaluate_root(root, tw, [&run] { run.stop(); }); };
        fault = brindle::write_selection(run, name, format, evaluate, last);
        return last;
    });
    if (!open_window(&tw)) return;
    if (!fault.name.empty())
        tell_of_failed_write(fault, tw);
    else
        show_foot(*tw.frame, fmt::format("Selection written to {}....", name));
}

void write_selection(TreeWindow &tw, tk::Button &button) {
    tw.file_requestor->set_title("Save corpus as");
    set_handler(*tw.file_requestor, save_selection_to_name);
    position_frame_from_batchbox_button(*tw.file_requestor, button, tw);
}

}  // namespace

void install_batch_actions(Commands &table) {
    table.expand_all = expand_trees;
    table.propose_all = propose_trees;
    table.undo_edits_all = undo_edits_all;
    table.check_all = check_trees;
    table.uncheck_all = uncheck_trees;
    table.proposetest_all = proposetest_all;
    table.propose_results_to_name = propose_results_to_name;
    table.write_selection = write_selection;
}

}  // namespace brindle
