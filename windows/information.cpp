#include "windows/information.hpp"

#include "display/information.hpp"
#include "windows/tree_window.hpp"

namespace brindle {

void show_information(TreeWindow &window, Node &node, bool mothers, QPoint place) {
    enum Answer { ok = 0, more = 1 };
    const auto page_with_more = [&](std::string_view page) {
        return ask(&window,
                   {.message = std::string(page) + "\n...",
                    .buttons = {{"More..", more}, {"Ok", ok}},
                    .silent = true},
                   place) == more;
    };
    const auto last_page = information(window.corpus(), &node, window.info_mode, mothers, page_with_more);
    if (last_page) window.tell_at(&node, *last_page, true);
}

}  // namespace brindle
