// What of a tree's look the user chooses in the platform's dialogs: a font, colours.
#include "drawing/text.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

const std::pair<const char *, QColor TreeColours::*> parts[] = {
    {"category", &TreeColours::category}, {"tag", &TreeColours::tag}, {"word", &TreeColours::word}};

std::string setting_of(const char *part) {
    return std::string("colour/") + part;
}

}  // namespace

// The size is that of "font-size" which comes nearest.
void TreeWindow::choose_font() {
    bool chosen = false;
    QFont now = fonts().word;
    now.setStyleName(QFontInfo(now).styleName());  // without it the dialog takes the family's first style
    const QFont font = QFontDialog::getFont(&chosen, now, this, "Font of the trees");
    if (!chosen) return;
    const int pixels = QFontInfo(font).pixelSize();
    int nearest = params_.font_scale, distance = 1000;
    for (int scale = 0; scale < nr_of_font_scales; ++scale) {
        const auto sized = find_tree_fonts(start_font, scale);
        if (!sized || std::abs(sized->word.pixelSize() - pixels) >= distance) continue;
        distance = std::abs(sized->word.pixelSize() - pixels);
        nearest = scale;
    }
    const char *style = font.bold() && font.italic() ? "-bold-italic"
                        : font.bold()                ? "-bold"
                        : font.italic()              ? "-italic"
                                                     : "";
    font_name_ = to_locale(font.family()) + style;
    set_font_scale(nearest);
}

void TreeWindow::choose_colour(const char *name, QColor TreeColours::*part) {
    const QColor now = canvas_->colours().*part;
    const QColor colour = QColorDialog::getColor(now, this, QString("Colour of each %1").arg(name));
    if (!colour.isValid()) return;
    workbench_.settings().remember(setting_of(name).c_str(), colour.name());
    for (TreeWindow *window : workbench_.tree_windows()) window->use_chosen_colours();
}

// Nothing is chosen for a part whose colour is not remembered: it follows the palette.
void TreeWindow::use_chosen_colours() {
    TreeColours colours = colours_for(palette());
    bool any = false;
    for (const auto &[name, part] : parts) {
        const QColor colour(workbench_.settings().text(setting_of(name).c_str(), {}));
        if (!colour.isValid()) continue;
        colours.*part = colour;
        any = true;
    }
    if (any)
        canvas_->set_colours(colours);
    else
        canvas_->follow_palette();
}

void TreeWindow::forget_colours() {
    for (const auto &[name, part] : parts)
        workbench_.settings().remember(setting_of(name).c_str(), QString());
    for (TreeWindow *window : workbench_.tree_windows()) window->use_chosen_colours();
}

}  // namespace brindle
