// The annotation selectors: the tags seen with a category, or with a word, in checked trees.
#include "gui/command_windows.hpp"

namespace brindle {

namespace {

constexpr int lexical = 3;

// Keys on a selector: Return takes the row, Escape hides the selector, Up and Down (8 and 2) move the row.
// Only presses count, so that a key that is held down moves on.
bool selector_background(tk::Panel &panel, const tk::Event &event) {
    TreeWindow &tw = window_of(panel);
    tk::List &list = number_of(panel, Key::kind) == lexical ? *tw.lex_list : *tw.cat_list;
    const bool up = event.code == tk::EVENT_UP || event.code == '8';
    const bool down = event.code == tk::EVENT_DOWN || event.code == '2';
    const bool ours = up || down || event.code == tk::CODE_RETURN || event.code == tk::CODE_ESCAPE;
    if (!ours || event.negative) return ours;
    const int row = list.selected();
    if (event.code == tk::CODE_RETURN)
        commands.select_tag(tw, list);
    else if (event.code == tk::CODE_ESCAPE)
        dismiss(frame_to_hide(list));
    else if (up && row > 0)
        list.select(row - 1);
    else if (down && row >= 0 && row + 1 < list.size())
        list.select(row + 1);
    return true;
}

void add_messages(tk::Panel &panel, int kind) {
    const bool word = kind == lexical;
    panel.add_message(word ? "         Existing annotations of this lexical"
                           : "         Existing annotations for this category,",
                      tk::first_at());
    panel.add_message(word ? "         item, ordered by decreasing frequency:"
                           : "         ordered by decreasing frequency:",
                      tk::new_row(18, 5));
}

tk::Button::Callback list_callback(ListCommand Commands::*command) {
    return [command](tk::Button &button) { (commands.*command)(window_of(button), button); };
}

}  // namespace

void create_tag_selector(TreeWindow &tw, int kind) {
    tk::CommandFrame &frame = tw.frame->add_command_frame();
    tk::Panel &panel = frame.panel();
    add_messages(panel, kind);
    tk::List &list = panel.add_list({}, tk::new_row(), {.rows = 6, .width = 300});
    list.set_on_activate([](tk::List &l, int) { commands.select_tag(window_of(l), l); });
    tk::Button &ok = panel.add_button("Ok", tk::new_row(), list_callback(&Commands::select_tag));
    tk::Button &where = panel.add_button("Where?", {}, list_callback(&Commands::where));
    add_cancel(frame);
    set_frame_to_hide(list, frame);
    for (tk::Object *object : {static_cast<tk::Object *>(&panel), static_cast<tk::Object *>(&list),
                               static_cast<tk::Object *>(&ok), static_cast<tk::Object *>(&where)})
        set_number(*object, Key::kind, kind);
    panel.set_background_event(selector_background);
    panel.accept_keystrokes(true);
    panel.set_default_item(ok);
    frame.fit();
    (kind == lexical ? tw.lex_selector : tw.cat_selector) = &frame;
    (kind == lexical ? tw.lex_list : tw.cat_list) = &list;
}

}  // namespace brindle
