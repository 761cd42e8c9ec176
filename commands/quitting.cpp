// Closing a tree window, and the workbench.
#include "commands/subjects.hpp"
#include "gui/tree_window.hpp"
#include "model/forest.hpp"
#include "model/request.hpp"
#include "prolog/pipe.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

namespace {

enum Answer { NO = 1, YES = 2 };

void quit(TreeWindow &tw, tk::Button &) {
    if (BATCH && BATCH_TREE_GUI == &tw) commands.stop_batch(tw);
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
    if (MODIFIED != 0 && !really_quit(button.panel())) return;
    quit_prolog();
    tk::notify_stop();
}

}  // namespace

void install_quitting(Commands &table) {
    table.quit = quit;
    table.qt = qt;
}

}  // namespace brindle
