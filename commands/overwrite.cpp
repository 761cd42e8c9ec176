#include "commands/overwrite.hpp"

#include <unistd.h>

namespace brindle {

namespace {

enum Answer { YES = 1, NO = 2, CANCEL = 3 };

tk::NoticeSpec notice_on_panel(TreeWindow &tw, std::vector<std::string> message,
                               std::vector<tk::NoticeButton> buttons) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(*tw.panel);
    spec.message = std::move(message);
    spec.buttons = std::move(buttons);
    return spec;
}

}  // namespace

bool may_write(const std::string &name, tk::CommandFrame &requestor, TreeWindow &tw) {
    if (access(name.c_str(), R_OK) != 0) return true;
    tk::NoticeSpec spec =
        notice_on_panel(tw, {name, "exists, overwrite?"}, {{"Yes", YES}, {"No", NO}, {"Cancel", CANCEL}});
    spec.default_value = NO;  // a Return too many overwrites nothing
    spec.escape_value = CANCEL;
    const int answer = tk::notice_prompt(spec);
    if (answer == NO) requestor.show();
    return answer == YES;
}

void cannot_write(const std::string &name, const std::string &reason, TreeWindow &tw) {
    tk::notice_prompt(notice_on_panel(tw, {"cannot write to:", name, reason}, {{"Ok", YES}}));
}

}  // namespace brindle
