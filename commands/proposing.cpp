// "Propose".
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "propose/run.hpp"
#include "toolkit/display.hpp"

namespace brindle {

namespace {

void propose(TreeWindow &tw, tk::Button &) {
    if (!current_tree(tw)) return;
    tw.frame->set_busy(true);
    tk::flush_display();
    const bool prob_break = propose_tree(the_corpus(), tw.tree_number);
    tree_GUI_repaint(tw);
    tw.frame->set_busy(false);
    if (prob_break)
        prompt(*tw.notice,
               "The annotation of the selected nodes\n\033\n\t\t\tcould not be inferred from their daughters",
               true);
}

}  // namespace

void install_proposing(Commands &table) {
    table.propose = propose;
}

}  // namespace brindle
