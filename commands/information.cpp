// What the statistics know about the part of a node that was clicked.
#include "display/information.hpp"

#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "toolkit/display.hpp"

namespace brindle {

namespace {

enum Answer { OK = 0, MORE = 1 };

// One page of a display that goes on, where the pointer is.
bool more_info(std::string_view text, TreeWindow &tw, const tk::Event &event) {
    tk::NoticeSpec spec;
    spec.place = tk::place_at(*tw.canvas, event.at);
    spec.message = {std::string(text), "..."};
    spec.buttons = {{"More..", MORE}, {"Ok", OK}};
    spec.silent = true;
    const int answer = tk::notice_prompt(spec);
    tk::flush_display();
    return answer == MORE;
}

void displayinf(TreeWindow &tw, Node &node, const tk::Event &event) {
    const auto last_page =
        information(the_corpus(), &node, static_cast<InfoMode>(tw.info_mode), event.control,
                    [&](std::string_view page) { return more_info(page, tw, event); });
    if (last_page) prompt_at_node(&node, *last_page, tw, true);
}

}  // namespace

void install_information(Commands &table) {
    table.displayinf = displayinf;
}

}  // namespace brindle
