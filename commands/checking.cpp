// Marking trees as checked.
#include "commands/subjects.hpp"
#include "edit/change.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

void checked(TreeWindow &tw, tk::Item &, int value) {
    if (!current_tree(tw)) return;
    set_checked(the_corpus(), tw.tree_number, value != 0);
}

}  // namespace

void install_checking(Commands &table) {
    table.checked = checked;
}

}  // namespace brindle
