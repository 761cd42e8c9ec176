// "Save" and "Save as".
#include "corpus/saving.hpp"

#include "commands/formulas.hpp"
#include "commands/overwrite.hpp"
#include "commands/subjects.hpp"
#include "gui/current_run.hpp"
#include "gui/dialogs.hpp"
#include "gui/main_window.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

void save(TreeWindow &tw, tk::Button &) {
    const SaveResult result = brindle::save(the_corpus());
    if (result.status == SaveStatus::saved)
        show_foot(*tw.frame, result.message);
    else
        prompt(*tw.notice, result.message, false);
}

// Writes the information format: a run over all trees, which Control-C ends.
SaveResult save_information(const std::string &name, TreeWindow &tw) {
    bool stopped = false;
    const auto stop = [&stopped] { stopped = true; };
    all_frames_busy(*tw.main_frame, true);
    const int number = begin_run(tw, stop);
    const SaveResult result = brindle::save_as(
        the_corpus(), name, CorpusFormat::info, [&](Node *root) { return evaluate_root(root, tw, stop); },
        [&] {
            dispatch_in_run();
            return !stopped;
        });
    if (run_goes_on(number)) {
        end_run();
        all_frames_busy(*tw.main_frame, false);
    }
    return result;
}

void save_to_name(TreeWindow &tw, tk::TextField &field) {
    tw.file_requestor->hide();
    const std::string name = field.value();
    if (name.empty() || !may_write(name, *tw.file_requestor, tw)) return;
    const auto format = static_cast<CorpusFormat>(tw.format_choice->value());
    const SaveResult result = format == CorpusFormat::info ? save_information(name, tw)
                                                           : brindle::save_as(the_corpus(), name, format);
    if (!open_window(&tw)) return;
    if (result.status != SaveStatus::saved) {
        prompt_at_panel(*tw.panel, result.message, false);
        return;
    }
    if (format == CorpusFormat::atis) show_corpus_name(*tw.main_frame);
    show_foot(*tw.frame, result.message);
}

void save_as(TreeWindow &tw, tk::Button &button) {
    tw.file_requestor->set_title("Save corpus as");
    set_handler(*tw.file_requestor, save_to_name);
    position_frame_from_button(*tw.file_requestor, button, tw);
}

void which_save_as(TreeWindow &tw, tk::TextField &field) {
    if (const FieldCommand handler = handler_of(*tw.file_requestor)) handler(tw, field);
}

void auginfo(TreeWindow &tw, tk::Item &, int format) {
    if (format == static_cast<int>(CorpusFormat::dop) || format == static_cast<int>(CorpusFormat::dop2))
        prompt_at_panel(*tw.panel,
                        "Note: A filename ending in \".aug\" will augment\n"
                        "each tree with a rootnode \"sss\".",
                        true);
}

}  // namespace

void install_saving(Commands &table) {
    table.save = save;
    table.save_as = save_as;
    table.which_save_as = which_save_as;
    table.auginfo = auginfo;
}

}  // namespace brindle
