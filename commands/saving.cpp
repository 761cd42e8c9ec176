// "Save" and "Save as".
#include "corpus/saving.hpp"

#include <fmt/printf.h>

#include "commands/overwrite.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/main_window.hpp"
#include "model/forest.hpp"

namespace brindle {

namespace {

void save(TreeWindow &tw, tk::Button &) {
    const SaveResult result = brindle::save();
    switch (result.status) {
        case SaveStatus::newer_on_disk:
            prompt(*tw.notice, fmt::sprintf("Refuse to save to %s:\nFile on disk is newer.", CORPUS), false);
            return;
        case SaveStatus::cannot_write:
            prompt(*tw.notice, fmt::sprintf("Cannot write to:\n%s\n%s", CORPUS, result.reason), false);
            return;
        case SaveStatus::saved:
            show_foot(*tw.frame, CORPUS + " saved");
    }
}

// The corpus has got a new name: the main window and the tree windows show it.
void show_corpus_name(TreeWindow &tw) {
    edit_button(*tw.main_frame).set_label(edit_label(CORPUS));
    tw.main_frame->set_title(CORPUS);
    for (const auto &window : tree_windows()) window->frame->set_title(CORPUS);
}

SaveResult save_natively(TreeWindow &tw, const std::string &name) {
    SaveResult result = write_corpus(name);
    if (result.status != SaveStatus::saved) return result;
    note_saved(name);
    show_corpus_name(tw);
    show_foot(*tw.frame, name + " saved");
    return result;
}

void save_to_name(TreeWindow &tw, tk::TextField &field) {
    tw.file_requestor->hide();
    const std::string name = field.value();
    if (name.empty() || !may_write(name, *tw.file_requestor, tw)) return;
    const SaveResult result = save_natively(tw, name);
    if (result.status != SaveStatus::saved) cannot_write(name, result.reason, tw);
}

void save_as(TreeWindow &tw, tk::Button &button) {
    tw.file_requestor->set_title("Save corpus as");
    set_handler(*tw.file_requestor, save_to_name);
    position_frame_from_button(*tw.file_requestor, button, tw);
}

void which_save_as(TreeWindow &tw, tk::TextField &field) {
    if (const FieldCommand handler = handler_of(*tw.file_requestor)) handler(tw, field);
}

}  // namespace

void install_saving(Commands &table) {
    table.save = save;
    table.save_as = save_as;
    table.which_save_as = which_save_as;
}

}  // namespace brindle
