// "Save" and "Save as".
#include "corpus/saving.hpp"

#include "commands/overwrite.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/main_window.hpp"
#include "prolog/checking.hpp"

namespace brindle {

namespace {

void save(TreeWindow &tw, tk::Button &) {
    const SaveResult result = brindle::save();
    if (result.status == SaveStatus::saved)
        show_foot(*tw.frame, result.message);
    else
        prompt(*tw.notice, result.message, false);
}

void save_to_name(TreeWindow &tw, tk::TextField &field) {
    tw.file_requestor->hide();
    const std::string name = field.value();
    if (name.empty() || !may_write(name, *tw.file_requestor, tw)) return;
    const auto format = static_cast<CorpusFormat>(tw.format_choice->value());
    const SaveResult result =
        brindle::save_as(name, format, &tw, [&tw](Node *root) { return evaluate_formula(root, &tw); });
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
