// What of a tree's look the user chooses in the platform's dialogs: a font, colours.
#include "drawing/text.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

struct Part {
    const char *name;
    const char *setting;
    QColor TreeColours::*colour;
};
constexpr Part parts[] = {{"category", "colour/category", &TreeColours::category},
                          {"tag", "colour/tag", &TreeColours::tag},
                          {"word", "colour/word", &TreeColours::word}};

}  // namespace

// The size is that of "font-size" which comes nearest.
void TreeWindow::choose_font() {
    bool chosen = false;
    QFont now = fonts().word;
    now.setStyleName(QFontInfo(now).styleName());  // without it the dialog takes the family's first style
    const QFont font = QFontDialog::getFont(&chosen, now, this, "Font of the trees");
    if (!chosen) return;
    font_name_ = to_locale(font.family()) + (font.bold() ? "-bold" : "") + (font.italic() ? "-italic" : "");
    set_font_scale(nearest_font_scale(QFontInfo(font).pixelSize()));
}

void TreeWindow::create_colour_menu(QMenu &menu) {
    const auto remember = [this](const Part &part, const QString &colour) {
        workbench_.settings().setValue(part.setting, colour);
        for (TreeWindow *window : workbench_.tree_windows()) window->use_chosen_colours();
    };
    for (const Part &part : parts)
        menu.addAction(QString("of each %1...").arg(part.name), this, [this, remember, &part] {
            const QColor colour = QColorDialog::getColor(canvas_->colours().*part.colour, this,
                                                         QString("Colour of each %1").arg(part.name));
            if (colour.isValid()) remember(part, colour.name());
        });
    menu.addAction("the usual ones", this, [remember] {
        for (const Part &part : parts) remember(part, {});
    });
}

// A part whose colour is not remembered follows the palette.
void TreeWindow::use_chosen_colours() {
    std::optional<TreeColours> chosen;
    for (const Part &part : parts) {
        const QColor colour(workbench_.settings().value(part.setting).toString());
        if (!colour.isValid()) continue;
        if (!chosen) chosen = colours_for(palette());
        (*chosen).*part.colour = colour;
    }
    canvas_->set_colours(chosen);
}

}  // namespace brindle
