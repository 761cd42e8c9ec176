// Turning pages.
#include <algorithm>

#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

// Shows the tree or, beyond an end of the corpus, the last one at that end.
void turn_to(int tree, TreeWindow &tw) {
    if (the_corpus().amount() > 0) show_nr(std::clamp(tree, 0, the_corpus().amount() - 1), tw);
}

void next(TreeWindow &tw, tk::Button &) {
    turn_to(tw.tree_number + 1, tw);
}

void previous(TreeWindow &tw, tk::Button &) {
    turn_to(tw.tree_number - 1, tw);
}

void current_proc(TreeWindow &tw, tk::Item &, int value) {
    turn_to(value - 1, tw);
}

}  // namespace

void install_navigation(Commands &table) {
    table.next = next;
    table.previous = previous;
    table.current_proc = current_proc;
}

}  // namespace brindle
