// "Export to LaTeX".
#include <fmt/format.h>

#include "base/output_file.hpp"
#include "commands/overwrite.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "prolog/latex.hpp"

namespace brindle {

namespace {

// The requestor keeps the node: the menu may be opened on another one before it is answered.
void show_latex_requestor(TreeWindow &tw, Node &node) {
    tw.latexfile_requestor->hide();
    set_node(*tw.latexfile_requestor, &node);
    position_frame_from_menu(*tw.latexfile_requestor, *tw.subtrees_menu, tw);
}

void tell_unwritten(const std::string &name, const std::string &reason, TreeWindow &tw) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(*tw.panel);
    spec.message = {"cannot write to", name, reason};
    spec.buttons = {{"Bummer!", 1}};
    tk::notice_prompt(spec);
}

void make_latexfile(TreeWindow &tw, tk::TextField &field) {
    tw.latexfile_requestor->hide();
    const std::string name = field.value();
    Node *node = node_of(*tw.latexfile_requestor);
    if (!node || name.empty() || !may_write(name, *tw.latexfile_requestor, tw)) return;
    OutputFile file(name);
    const bool written =
        file.ok() && file.write(latex_document(node, node->tree(), the_corpus().name, tw.show_punctuation)) &&
        file.commit();
    if (written)
        show_foot(*tw.frame, fmt::format("{} created", name));
    else
        tell_unwritten(name, file.error(), tw);
}

}  // namespace

void install_latex_export(Commands &table) {
    table.show_latex_requestor = show_latex_requestor;
    table.make_latexfile = make_latexfile;
}

}  // namespace brindle
