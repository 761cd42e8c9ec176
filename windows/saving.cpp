#include "windows/saving.hpp"

#include <fmt/format.h>

#include "base/output_file.hpp"
#include "corpus/saving.hpp"
#include "drawing/text.hpp"
#include "prolog/latex.hpp"
#include "windows/formulas.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

// Writes the information format: a run over all trees, which Control-C ends.
SaveResult save_information(const std::string &name, TreeWindow &window) {
    Workbench &workbench = window.workbench();
    bool stopped = false;
    const auto stop = [&stopped] { stopped = true; };
    workbench.set_all_busy(true);
    const int number = workbench.run().begin(window, stop);
    const SaveResult result = brindle::save_as(
        window.corpus(), name, CorpusFormat::info,
        [&](Node *root) { return evaluate_root(root, window, stop); },
        [&] {
            workbench.run().dispatch();
            return !stopped;
        });
    if (workbench.run().goes_on(number)) {
        workbench.run().end();
        workbench.set_all_busy(false);
    }
    return result;
}

// In the footer, or why it has failed in a notice. True: it is saved.
bool show_result(const SaveResult &result, TreeWindow &window) {
    const bool saved = result.status == SaveStatus::saved;
    if (saved)
        window.set_footer(result.message);
    else
        window.tell(result.message, false);
    return saved;
}

void save_to_name(TreeWindow &window, const std::string &name, CorpusFormat format) {
    window.file_requestor->hide();
    if (name.empty() || !may_write(name, *window.file_requestor)) return;
    Workbench &workbench = window.workbench();
    const SaveResult result = format == CorpusFormat::info ? save_information(name, window)
                                                           : brindle::save_as(window.corpus(), name, format);
    if (!workbench.window_of(&window)) return;
    if (show_result(result, window) && format == CorpusFormat::atis) workbench.show_corpus_name();
}

void write_latex(Requestor &requestor, const std::string &name) {
    Node *node = requestor.node();
    if (name.empty() || !may_write(name, requestor)) return;
    TreeWindow &window = requestor.window_in_hand();
    OutputFile file(name);
    const bool written =
        file.ok() &&
        file.write(latex_document(node, node->tree(), window.corpus().name, window.shows_punctuation())) &&
        file.commit();
    if (written)
        window.set_footer(fmt::format("{} created", name));
    else
        window.ask({.message = fmt::format("cannot write to\n{}\n{}", name, file.error()),
                    .buttons = {{"Bummer!", 1}}});
}

}  // namespace

void save(TreeWindow &window) {
    show_result(brindle::save(window.corpus()), window);
}

void save_as(TreeWindow &window, const QWidget &below) {
    FileRequestor &requestor = *window.file_requestor;
    requestor.set_handler(
        [&window](const std::string &name, CorpusFormat format) { save_to_name(window, name, format); });
    requestor.show_below(below);
}

FileRequestor::FileRequestor(TreeWindow &owner)
    : CommandWindow(owner, "Save corpus as"), name_(add_file_field("File name:", 30)) {
    new_row();
    format_ = add_choice("Write in:", {"ATIS-format", "DOP-format", "DOP-format2", "Info-format"});
    connect(format_, &QComboBox::activated, this, [this](int index) {
        const auto format = static_cast<CorpusFormat>(index);
        if (format == CorpusFormat::dop || format == CorpusFormat::dop2)
            window_in_hand().tell(
                "Note: A filename ending in \".aug\" will augment\n"
                "each tree with a rootnode \"sss\".",
                true);
    });
    add_ok_and_cancel([this] {
        if (handler_) handler_(to_locale(name_->text()), static_cast<CorpusFormat>(format_->currentIndex()));
    });
}

Requestor *new_latex_requestor(TreeWindow &owner) {
    auto *requestor = new Requestor(owner, "Tree to LaTeX");
    requestor->add_message("Give filename for LaTeX representation of selected tree");
    requestor->new_row();
    requestor->ask_for(requestor->add_file_field("    File:", 30),
                       [requestor](const std::string &name) { write_latex(*requestor, name); });
    return requestor;
}

bool may_write(const std::string &name, CommandWindow &requestor) {
    enum Answer { yes = 1, no = 2, cancel = 3 };
    if (!can_be_read(name)) return true;
    const int answer =
        requestor.window_in_hand().ask({.message = name + "\nexists, overwrite?",
                                        .buttons = {{"Yes", yes}, {"No", no}, {"Cancel", cancel}},
                                        .default_value = no,  // a Return too many
                                        .escape_value = cancel});
    if (answer == no) requestor.show();
    return answer == yes;
}

}  // namespace brindle
