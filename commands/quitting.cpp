// Closing a tree window, and the workbench.
#include "commands/prolog_window.hpp"
#include "commands/subjects.hpp"
#include "gui/current_run.hpp"
#include "gui/the_corpus.hpp"
#include "gui/tree_window.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

namespace {

enum Answer { NO = 1, YES = 2 };

void quit(TreeWindow &tw, tk::Button &) {
    if (running_window() == &tw) commands.stop_batch(tw);
    the_prolog().drop_claim_of(&tw);
    close_tree_window(tw);
}

bool really_quit(tk::Panel &panel) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(panel);
    spec.message = {"There are unsaved edits,", "are you sure you want to quit?"};
    spec.buttons = {{"No, cancel that", NO}, {"Yes", YES}};
    spec.default_value = NO;
    spec.escape_value = NO;
    return tk::notice_prompt(spec) == YES;
}

void qt(tk::Button &button) {
    if (the_corpus().unsaved_changes != 0 && !really_quit(button.panel())) return;
    the_prolog().quit();
    tk::notify_stop();
}

}  // namespace

void install_quitting(Commands &table) {
    table.quit = quit;
    table.qt = qt;
}

}  // namespace brindle
