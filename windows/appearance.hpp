#pragma once
// Style, palette and font of all windows.
#include <string>

namespace brindle {

class Settings;

// What the command line says of the look; each may be empty.
struct LookOptions {
    std::string text, ground;  // colours of texts and of their ground
    std::string font;          // a family, or a name of drawing/fonts.hpp
    bool reverse = false;      // the two colours swapped
};

// As the platform has it, or one of ours.
enum class Theme { platform, light, dark };

// Sets up what the options and the settings ask for. REQUIRES: there is an application.
void set_up_appearance(const LookOptions &options, const Settings &settings);

// Changes the theme of all windows, and remembers it.
void use_theme(Theme theme, Settings &settings);
Theme theme_in(const Settings &settings);

}  // namespace brindle
