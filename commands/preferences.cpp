// The font of a window, and whether it shows punctuation.
#include <string_view>

#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/drawing.hpp"

namespace brindle {

namespace {

constexpr std::string_view size_words[] = {"small", "medium", "default", "large"};  // by font scale

void styles(TreeWindow &tw, tk::MenuItem &item) {
    tw.font_name = item.label();
    find_window_font(tw);
    tree_GUI_repaint(tw);
}

void sizes(TreeWindow &tw, tk::MenuItem &item) {
    for (int scale = 0; scale < nr_of_font_scales; ++scale)
        if (size_words[scale] == item.label()) choose_font_scale(tw, scale);
    find_window_font(tw);
    tree_GUI_repaint(tw);
}

void show_punc(TreeWindow &tw, tk::MenuItem &item) {
    tw.show_punctuation = item.label() == "show it";
    tree_GUI_repaint(tw);
}

}  // namespace

void install_preferences(Commands &table) {
    table.styles = styles;
    table.sizes = sizes;
    table.show_punc = show_punc;
}

}  // namespace brindle
