// Marking trees as checked.
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "stats/changes.hpp"

namespace brindle {

namespace {

void checked(TreeWindow &tw, tk::Item &, int value) {
    if (!current_tree(tw)) return;
    set_checked(tw.tree_number, value != 0);
    tree_GUI_repaint(tw);
}

}  // namespace

void install_checking(Commands &table) {
    table.checked = checked;
}

}  // namespace brindle
