#include "commands/busy_notice.hpp"

#include "commands/prolog_window.hpp"
#include "gui/dialogs.hpp"

namespace brindle {

void busy_notice(const Node *node, std::string_view text, TreeWindow &tw) {
    constexpr int known = 1, fix = 0;
    tk::NoticeSpec spec;
    spec.message = {std::string(text)};
    spec.buttons = {{"I Know", known}, {"Please try to fix that", fix}};
    spec.escape_value = known;
    spec.silent = true;
    if (notice_at_node(node, spec, tw) == fix && the_prolog().is_busy()) the_prolog().write_line("true.\n");
}

}  // namespace brindle
