// The syntax editor and the syntactic-tag editor.
#include "base/limits.hpp"
#include "gui/command_windows.hpp"

namespace brindle {

namespace {

constexpr tk::Size editor_size{500, 400};
constexpr int strip_width = 86;

tk::Button &add_editor_button(tk::CommandFrame &frame, tk::Panel &strip, const char *label, tk::Place place,
                              ButtonCommand Commands::*command) {
    tk::Button &button = strip.add_button(label, place, button_callback(command));
    set_frame_to_hide(button, frame);
    return button;
}

}  // namespace

void create_syntax_editor(TreeWindow &tw) {
    tw.syntax_editor = &tw.frame->add_command_frame("Syntax Editor");
    tk::CommandFrame &frame = *tw.syntax_editor;
    tk::Panel &strip = frame.add_panel(tk::Side::left);
    add_editor_button(frame, strip, "Ok", tk::first_at(24, 18), &Commands::read_editor);
    add_editor_button(frame, strip, "Help", tk::new_row(19, 18), &Commands::edit_help);
    tk::Button &cancel =
        add_editor_button(frame, strip, "Cancel", tk::new_row(13, 18), &Commands::cancel_editor);
    strip.set_size({strip_width, 0});
    tw.syntax_textsw = &frame.add_text_window();
    set_window(*tw.syntax_textsw, tw);
    set_number(frame, Key::edited_tree, -1);
    frame.set_size(editor_size);
    frame.set_on_close([&cancel](tk::Frame &) { cancel.press(); });
}

void create_syn_tag_editor(TreeWindow &tw) {
    tw.syn_tag_editor = &tw.frame->add_command_frame();
    tk::TextField &field = tw.syn_tag_editor->panel().add_text_field(
        "Syntactic tag:", tk::first_at(), {.shown = 36, .stored = static_cast<int>(MAXSEM)});
    add_ok_and_cancel(*tw.syn_tag_editor, field, call_field_command<&Commands::syn_tag>);
    tw.syn_tag_editor->fit();
}

}  // namespace brindle
