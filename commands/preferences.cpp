// The font of a window, and whether it shows punctuation.
#include "commands/subjects.hpp"
#include "commands/tree_sizes.hpp"
#include "gui/dialogs.hpp"
#include "gui/drawing.hpp"
#include "gui/menus.hpp"

namespace brindle {

namespace {

void styles(TreeWindow &tw, tk::MenuItem &item) {
    tw.font_name = item.label();
    find_window_font(tw);
    tree_GUI_repaint(tw);
}

void sizes(TreeWindow &tw, tk::MenuItem &item) {
    choose_font_scale(tw, font_scale_of(item.label()));
    show_sizes(tw);  // in case the controls are open: they work on the current font size
    find_window_font(tw);
    tree_GUI_repaint(tw);
}

void show_punc(TreeWindow &tw, tk::MenuItem &item) {
    tw.show_punctuation = item.label() == show_punctuation_entry;
    tree_GUI_repaint(tw);
}

}  // namespace

void install_preferences(Commands &table) {
    table.styles = styles;
    table.sizes = sizes;
    table.show_punc = show_punc;
}

}  // namespace brindle
