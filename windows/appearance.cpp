#include "windows/appearance.hpp"

#include <utility>

#include "drawing/fonts.hpp"
#include "drawing/text.hpp"
#include "windows/settings.hpp"

namespace brindle {
namespace {

// The colours that the command line has named for texts and their ground; invalid: none.
QColor named_text, named_ground;

QPalette light_palette() {
    QPalette palette(QColor(0xEFEFEF), QColor(0xEFEFEF));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x1F5FAF));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x606060));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x808080));
    return palette;
}

QPalette dark_palette() {
    QPalette palette(QColor(0x4C4C4C), QColor(0x353535));
    palette.setColor(QPalette::Base, QColor(0x1E1E1E));
    palette.setColor(QPalette::AlternateBase, QColor(0x2A2A2A));
    palette.setColor(QPalette::Highlight, QColor(0x2F6DC4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0xA0A0A0));
    palette.setColor(QPalette::ToolTipBase, QColor(0x2A2A2A));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::BrightText})
        palette.setColor(role, QColor(0xF0F0F0));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x9A9A9A));
    return palette;
}

bool is_dark(Theme theme) {
    static const bool platform_is_dark = QGuiApplication::palette().window().color().lightness() < 128;
    return theme == Theme::dark || (theme == Theme::platform && platform_is_dark);
}

QPalette palette_of(Theme theme) {
    QPalette palette = is_dark(theme) ? dark_palette() : light_palette();
    if (named_text.isValid()) palette.setColor(QPalette::Text, named_text);
    if (named_ground.isValid()) palette.setColor(QPalette::Base, named_ground);
    return palette;
}

// Dark menus have no border that could be seen: their ground is lighter than what they open over.
void set_palette(Theme theme) {
    const QPalette palette = palette_of(theme);
    QApplication::setPalette(palette);
    QPalette menus = palette;
    if (is_dark(theme) && !named_ground.isValid()) menus.setColor(QPalette::Base, QColor(0x444444));
    QApplication::setPalette(menus, "QMenu");
}

}  // namespace

void set_up_appearance(const LookOptions &options, const Settings &settings) {
    QApplication::setStyle("Fusion");
    named_text = QColor(to_qstring(options.text));
    named_ground = QColor(to_qstring(options.ground));
    if (options.reverse) {
        const QPalette usual = palette_of(Theme::platform);
        std::swap(named_text, named_ground);
        if (!named_text.isValid()) named_text = usual.base().color();
        if (!named_ground.isValid()) named_ground = usual.text().color();
    }
    set_palette(theme_in(settings));
    if (options.font.empty()) return;
    if (const auto fonts = find_tree_fonts(options.font, 1)) QApplication::setFont(fonts->word);
}

void use_theme(Theme theme, Settings &settings) {
    settings.setValue("theme", static_cast<int>(theme));
    set_palette(theme);
}

Theme theme_in(const Settings &settings) {
    const int theme = settings.value("theme", 0).toInt();
    return theme == 1 ? Theme::light : theme == 2 ? Theme::dark : Theme::platform;
}

}  // namespace brindle
