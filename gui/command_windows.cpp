#include "gui/command_windows.hpp"

#include "gui/dialogs.hpp"
#include "toolkit/font.hpp"

namespace brindle {

void create_command_windows(TreeWindow &tw) {
    create_tag_editor(tw);
    create_syntax_editor(tw);
    create_syn_tag_editor(tw);
    create_file_requestor(tw);
    create_pred_requestor(tw);
    create_latexfile_requestor(tw);
    create_tag_selector(tw, 5);
    create_tag_selector(tw, 3);
    create_size_controller(tw);
    create_search_box(tw);
    create_batch_box(tw);
    create_results_requestor(tw);
    for (const auto &frame : tw.frame->subframes()) set_window_everywhere(*frame, tw);
}

void set_window_everywhere(tk::Frame &frame, TreeWindow &tw) {
    set_window(frame, tw);
    for (const auto &panel : frame.panels()) {
        set_window(*panel, tw);
        for (const auto &item : panel->items()) set_window(*item, tw);
    }
}

void fit_with_title(tk::CommandFrame &frame) {
    constexpr int buttons = 190;  // what a window manager puts beside the title, in whatever font
    frame.fit();
    const tk::Size size = frame.size();
    const int width = tk::default_font()->width(frame.title()) + buttons;
    if (size.w < width) frame.set_size({width, size.h});
}

void dismiss(tk::CommandFrame &frame) {
    frame.set_pinned(false);
    frame.hide();
}

tk::Button &add_cancel(tk::CommandFrame &frame, tk::Place place) {
    tk::Button &cancel =
        frame.panel().add_button("Cancel", place, [](tk::Button &button) { dismiss(frame_to_hide(button)); });
    set_frame_to_hide(cancel, frame);
    return cancel;
}

void add_ok_and_cancel(tk::CommandFrame &frame, tk::TextField &field, FieldCommand handler) {
    tk::Button &ok = frame.panel().add_button("Ok", tk::new_row(), text_ok_function);
    set_handler(ok, handler);
    set_text_field(ok, field);
    field.set_callback([handler](tk::TextField &f) { handler(window_of(f), f); });
    add_cancel(frame);
}

tk::Button::Callback button_callback(ButtonCommand Commands::*command) {
    return [command](tk::Button &button) { (commands.*command)(window_of(button), button); };
}

}  // namespace brindle
