#include "gui/commands_table.hpp"

#include "toolkit/frame.hpp"
#include "toolkit/notice.hpp"

namespace brindle {

constinit Commands commands;

void not_available(tk::Frame &frame) {
    tk::NoticeSpec spec;
    spec.place = tk::place_on(frame);
    spec.message = {"Not available yet."};
    spec.silent = true;
    tk::notice_prompt(spec);
}

}  // namespace brindle
