#include "commands/overwrite.hpp"

#include "corpus/saving.hpp"

namespace brindle {

namespace {

enum Answer { YES = 1, NO = 2, CANCEL = 3 };

}  // namespace

bool may_write(const std::string &name, tk::CommandFrame &requestor, TreeWindow &tw) {
    if (!can_be_read(name)) return true;
    tk::NoticeSpec spec;
    spec.place = tk::place_on(*tw.panel);
    spec.message = {name, "exists, overwrite?"};
    spec.buttons = {{"Yes", YES}, {"No", NO}, {"Cancel", CANCEL}};
    spec.default_value = NO;  // a Return too many overwrites nothing
    spec.escape_value = CANCEL;
    const int answer = tk::notice_prompt(spec);
    if (answer == NO) requestor.show();
    return answer == YES;
}

}  // namespace brindle
