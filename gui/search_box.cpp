// "Search & Replace".
#include "gui/command_windows.hpp"

namespace brindle {

namespace {

struct Action {
    const char *label;
    int code;
};

constexpr Action actions[] = {{"Search", 114}, {"Replace", 115}, {"Replace all", 116}};

void add_fields(TreeWindow &tw, tk::Panel &panel) {
    panel.add_message("        Specify tags to use as search-keys", tk::first_at());
    tw.search_syn = &panel.add_text_field("Syntactic: ", tk::new_row(), {.shown = 10});
    tw.search_lex = &panel.add_text_field("Lexical:    ", tk::new_row(), {.shown = 25});
    tw.search_sem = &panel.add_text_field("Semantic:", tk::new_row(), {.shown = 25});
    tw.replace_choice = &panel.add_choice("Replace ", tk::new_row(), {"semantics", "syntax"});
    tw.replace_with = &panel.add_text_field("with:", tk::new_row(18, 5), {.shown = 25});
    tw.complete_labels = &panel.add_check_box("Complete labels only", tk::new_row(), true);
    tw.prompt_at_replace = &panel.add_check_box("Prompt at replace", tk::new_row(), true);
    tw.start_here = &panel.add_check_box("Start here", {}, false);
}

}  // namespace

void create_search_box(TreeWindow &tw) {
    tw.search_box = &tw.frame->add_command_frame("Search & Replace");
    tk::Panel &panel = tw.search_box->panel();
    add_fields(tw, panel);
    tk::Place place = tk::new_row();
    for (const Action &action : actions) {
        tk::Button &button = panel.add_button(action.label, place, button_callback(&Commands::search_node));
        set_number(button, Key::kind, action.code);
        if (action.code == 114) panel.set_default_item(button);
        place = {};
    }
    add_cancel(*tw.search_box);
    fit_with_title(*tw.search_box);
}

}  // namespace brindle
