#include "gui/main_window.hpp"

#include <algorithm>

#include "base/text.hpp"
#include "gui/commands_table.hpp"
#include "gui/dialogs.hpp"
#include "gui/drawing.hpp"
#include "gui/keys.hpp"
#include "gui/the_corpus.hpp"
#include "gui/tree_frame.hpp"
#include "toolkit/frame.hpp"

namespace brindle {

namespace {

constexpr int panel_height = 30;
constexpr int frame_height = 400;
constexpr int width_beside_edit = 303;
constexpr std::size_t longest_name = 34;
constexpr std::size_t cut_name = 31;

// The longest beginning of the text of at most `size` bytes that cuts no character in two.
std::string_view beginning(std::string_view text, std::size_t size) {
    if (text.size() <= size) return text;
    if (text_mode() == TextMode::utf8)
        while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) --size;
    return text.substr(0, size);
}

// Fits the main panel to its items; returns the width it needs.
int fit_panel(tk::Panel &panel, const tk::Button &edit) {
    panel.set_size({0, 0});
    panel.fit();
    const int width = std::max(edit.box().w + width_beside_edit, panel.size().w);
    panel.set_size({width, std::max(panel_height, panel.size().h)});
    return width;
}

}  // namespace

std::string edit_label(std::string_view corpus) {
    if (corpus.size() <= longest_name) return "Edit " + std::string(corpus);
    return "Edit " + std::string(beginning(corpus, cut_name)) + "...";
}

void create_main_window(tk::Frame &main_frame) {
    main_frame.show_footer(true);
    main_frame.set_footer("Output window");

    tk::Panel &panel = main_frame.add_panel();
    tk::Button &quit = panel.add_button("Quit", {}, [](tk::Button &button) { commands.qt(button); });
    tk::TextField &query = panel.add_text_field("query:  ?-", {}, {.shown = 20, .stored = 1 << 20},
                                                [](tk::TextField &field) { commands.commando(field); });
    query.set_inactive(true);
    tk::Button &edit = panel.add_button(edit_label(the_corpus().name), {}, clone);
    tk::TextWindow &output = main_frame.add_text_window();
    output.set_wrap(true);
    output.set_editable(false);

    output.set_key(Key::query_item, &query);
    quit.set_key(Key::frame_to_hide, &main_frame);
    quit.set_key(Key::output_window, &output);
    edit.set_key(Key::frame_to_hide, &main_frame);
    main_frame.set_key(Key::output_window, &output);
    main_frame.set_key(Key::edit_button, &edit);
    main_frame.set_key(Key::query_item, &query);
    main_frame.set_on_close([&quit](tk::Frame &) { quit.press(); });

    main_frame.set_size({fit_panel(panel, edit), frame_height});
}

void show_corpus_name(tk::Frame &main_frame) {
    tk::Button &edit = edit_button(main_frame);
    edit.set_label(edit_label(the_corpus().name));
    const int width = fit_panel(edit.panel(), edit);
    if (main_frame.size().w < width) main_frame.set_size({width, main_frame.size().h});
    main_frame.set_title(the_corpus().name);
    for (const auto &window : tree_windows()) window->frame->set_title(the_corpus().name);
}

void clone(tk::Button &button) {
    tk::Frame &main_frame = *button.key_as<tk::Frame>(Key::frame_to_hide);
    TreeWindow &tw = create_tree_frame(main_frame);
    create_tree_panel(tw);
    create_canvas(tw);
    tw.frame->set_key(Key::edit_button, &edit_button(main_frame));
    fit_tree_frame(tw);
    tw.frame->show();
    tree_GUI_repaint(tw);
    tw.canvas->take_focus();
}

}  // namespace brindle
