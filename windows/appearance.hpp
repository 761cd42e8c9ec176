#pragma once
// Style, palette and font of all windows.
namespace brindle {

class Settings;
struct XOptions;

// As the platform has it, or one of ours.
enum class Theme { platform, light, dark };

// Sets up what the options and the settings ask for. REQUIRES: there is an application.
void set_up_appearance(const XOptions &options, const Settings &settings);

// Changes the theme of all windows, and remembers it.
void use_theme(Theme theme, Settings &settings);
Theme theme_in(const Settings &settings);

}  // namespace brindle
