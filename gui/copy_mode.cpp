// The copy mode: a tag is copied from the node that is clicked to the node on which "copy" was chosen.
#include "edit/change.hpp"
#include "gui/dialogs.hpp"
#include "gui/events.hpp"
#include "gui/the_corpus.hpp"

namespace brindle {

namespace {

enum Answer { YES = 1, NO = 2, CANCEL = 3 };

void end_copy_mode() {
    if (TreeWindow *receiving = open_window(COPY_TO->window)) show_foot(*receiving->frame, "");
    COPY_TO.reset();
}

// Carries the copy out; the clicked node is in the window's tree.
void copy_tag(Node *clicked, TreeWindow &tw) {
    const CopyRequest request = *COPY_TO;
    if (clicked == request.node) {
        prompt_at_node(clicked, "Interesting choice!", tw, true);
        return;
    }
    set_tag(the_corpus(), request.node, text_of(clicked->sem()));
    show_nr(request.tree, *request.window);
}

}  // namespace

void copy_to(Node *clicked, TreeWindow &tw) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(*tw.frame);
    spec.message = {clicked->sem() ? std::string(clicked->sem()->view()) : "(unlabeled)",
                    "Copy this annotation?"};
    spec.buttons = {{"Yes", YES}, {"No", NO}, {"Cancel", CANCEL}};
    spec.silent = true;
    const int answer = tk::notice_prompt(spec);
    if (answer == NO || !COPY_TO) return;
    if (answer == YES) copy_tag(clicked, tw);
    end_copy_mode();
}

void missed(TreeWindow &tw) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(*tw.frame);
    spec.message = {"You missed!"};
    spec.buttons = {{"Try again", YES}, {"Cancel", CANCEL}};
    if (tk::notice_prompt(spec) == CANCEL && COPY_TO) end_copy_mode();
}

}  // namespace brindle
