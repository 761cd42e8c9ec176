// The requestors: command windows with one text field, "Ok" and "Cancel".
#include "base/file_names.hpp"
#include "gui/command_windows.hpp"

namespace brindle {

void create_file_requestor(TreeWindow &tw) {
    tw.file_requestor = &tw.frame->add_command_frame();
    tk::Panel &panel = tw.file_requestor->panel();
    tk::TextField &name = panel.add_text_field("File name:", tk::first_at(), {.shown = 30, .stored = 160});
    tw.format_choice = &panel.add_choice("Write in:", tk::new_row(),
                                         {"ATIS-format", "DOP-format", "DOP-format2", "Info-format"},
                                         value_callback<tk::Choice>(&Commands::auginfo));
    name.set_completer(complete_file_name);
    add_ok_and_cancel(*tw.file_requestor, name, call_field_command<&Commands::which_save_as>);
    fit_with_title(*tw.file_requestor);
}

void create_results_requestor(TreeWindow &tw) {
    tw.results_requestor = &tw.frame->add_command_frame("Save evaluation results in:");
    tk::TextField &name = tw.results_requestor->panel().add_text_field("File name:", tk::first_at(),
                                                                       {.shown = 30, .stored = 160});
    name.set_completer(complete_file_name);
    add_ok_and_cancel(*tw.results_requestor, name, call_field_command<&Commands::propose_results_to_name>);
    fit_with_title(*tw.results_requestor);
}

void create_pred_requestor(TreeWindow &tw) {
    tw.pred_requestor = &tw.frame->add_command_frame("Evaluation predicate");
    tk::Panel &panel = tw.pred_requestor->panel();
    panel.add_message("Set predicate for this window", tk::first_at());
    tk::TextField &predicate = panel.add_text_field("       Predicate:", tk::new_row(), {.shown = 12});
    panel.add_message("Note: Just give the name,do not", tk::new_row());
    panel.add_message("indicate arity or supply arguments", tk::new_row());
    add_ok_and_cancel(*tw.pred_requestor, predicate, call_field_command<&Commands::set_pred>);
    fit_with_title(*tw.pred_requestor);
}

void create_latexfile_requestor(TreeWindow &tw) {
    tw.latexfile_requestor = &tw.frame->add_command_frame("Tree to LaTeX");
    tk::Panel &panel = tw.latexfile_requestor->panel();
    panel.add_message("Give filename for LaTeX representation of selected tree", tk::first_at());
    tk::TextField &name = panel.add_text_field("    File:", tk::new_row(), {.shown = 30});
    name.set_completer(complete_file_name);
    add_ok_and_cancel(*tw.latexfile_requestor, name, call_field_command<&Commands::make_latexfile>);
    fit_with_title(*tw.latexfile_requestor);
}

}  // namespace brindle
