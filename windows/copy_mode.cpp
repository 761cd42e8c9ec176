#include "windows/copy_mode.hpp"

#include "edit/change.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

void begin_copy_to(Node &node, TreeWindow &window) {
    window.set_footer("Click on the node whose annotation \033\n\t\t\t\t\tyou want to copy to this node.");
    window.workbench().copy = CopyRequest{&node, &window};
}

void end_copy(Workbench &workbench) {
    if (!workbench.copy) return;
    workbench.copy->window->set_footer("");
    workbench.copy.reset();
}

void copy_from(Node &clicked, TreeWindow &window) {
    enum Answer { yes = 1, no = 2, cancel = 3 };
    const std::string tag(clicked.sem() ? clicked.sem()->view() : "(unlabeled)");
    const int answer = window.ask({.message = tag + "\nCopy this annotation?",
                                   .buttons = {{"Yes", yes}, {"No", no}, {"Cancel", cancel}},
                                   .silent = true});
    Workbench &workbench = window.workbench();
    if (answer == no || !workbench.copy) return;
    const CopyRequest request = *workbench.copy;
    if (answer == yes && &clicked == request.node) {
        window.tell_at(&clicked, "Interesting choice!", true);
    } else if (answer == yes) {
        set_tag(workbench.corpus(), request.node, text_of(clicked.sem()));
        request.window->show_tree(request.node->tree());
    }
    end_copy(workbench);
}

void copy_missed(TreeWindow &window) {
    enum Answer { again = 1, cancel = 3 };
    if (window.ask({.message = "You missed!", .buttons = {{"Try again", again}, {"Cancel", cancel}}}) ==
        cancel)
        end_copy(window.workbench());
}

}  // namespace brindle
