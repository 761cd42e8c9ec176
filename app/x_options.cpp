#include "app/x_options.hpp"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace brindle {
namespace {

struct Option {
    std::string_view name;
    std::string XOptions::*value;  // takes the next word; null: a flag, or a word that means nothing here
    bool XOptions::*flag;
    bool takes_word;
};

constexpr Option with_value(std::string_view name, std::string XOptions::*member) {
    return {name, member, nullptr, true};
}
constexpr Option with_flag(std::string_view name, bool XOptions::*member) {
    return {name, nullptr, member, false};
}
constexpr Option ignored(std::string_view name, bool takes_word) {
    return {name, nullptr, nullptr, takes_word};
}

constexpr Option options[] = {
    with_value("-display", &XOptions::display),
    with_value("-geometry", &XOptions::geometry),
    with_value("-title", &XOptions::title),
    with_value("-label", &XOptions::title),
    with_value("-name", &XOptions::name),
    with_value("-fg", &XOptions::foreground),
    with_value("-foreground", &XOptions::foreground),
    with_value("-bg", &XOptions::background),
    with_value("-background", &XOptions::background),
    with_value("-fn", &XOptions::font),
    with_value("-font", &XOptions::font),
    with_value("-scale", &XOptions::scale),
    with_flag("-iconic", &XOptions::iconic),
    with_flag("-rv", &XOptions::reverse),
    with_flag("-reverse", &XOptions::reverse),
    ignored("+rv", false),
    ignored("-sync", false),
    ignored("-synchronous", false),
    ignored("-xrm", true),
    ignored("-bd", true),
    ignored("-bordercolor", true),
    ignored("-bw", true),
    ignored("-borderwidth", true),
    ignored("-selectionTimeout", true),
    ignored("-xnllanguage", true),
    ignored("-visual", true),
    ignored("-depth", true),
};

// A factor for all sizes, within reason; 0: none is asked for.
double factor(const char *text) {
    const double value = text ? std::strtod(text, nullptr) : 0;
    return value > 0 ? std::clamp(value, 0.5, 4.0) : 0;
}

}  // namespace

XOptions take_x_options(int &argc, char **argv) {
    XOptions taken;
    int kept = std::min(argc, 1);
    for (int i = 1; i < argc; ++i) {
        const auto *option = std::ranges::find(options, std::string_view(argv[i]), &Option::name);
        const bool known = option != std::end(options) && (!option->takes_word || i + 1 < argc);
        if (!known) {
            argv[kept++] = argv[i];
            continue;
        }
        if (option->flag) taken.*(option->flag) = true;
        if (option->takes_word) ++i;
        if (option->value) taken.*(option->value) = argv[i];
    }
    argc = kept;
    argv[kept] = nullptr;
    return taken;
}

void apply_before_start(const XOptions &taken) {
    if (!taken.display.empty()) setenv("DISPLAY", taken.display.c_str(), 1);
    if (!taken.name.empty()) setenv("RESOURCE_NAME", taken.name.c_str(), 1);
    double scale = factor(taken.scale.c_str());
    if (scale == 0) scale = factor(std::getenv("BRINDLE_SCALE"));
    if (scale > 0) setenv("QT_SCALE_FACTOR", std::to_string(scale).c_str(), 1);
}

// Only X is asked: other platforms say themselves what they miss.
std::string why_no_display(const XOptions &taken) {
    const char *platform = std::getenv("QT_QPA_PLATFORM");
    const char *wayland = std::getenv("WAYLAND_DISPLAY");
    const bool other = platform && *platform && std::string_view(platform).substr(0, 3) != "xcb";
    if (other || (!(platform && *platform) && wayland && *wayland && taken.display.empty())) return {};
    // Stays open: a server that loses its only client starts anew, and may not be there for the next one.
    static xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
    const bool failed = xcb_connection_has_error(connection) != 0;
    const char *name = std::getenv("DISPLAY");
    return failed ? "cannot open the display \"" + std::string(name ? name : "") + "\"" : "";
}

}  // namespace brindle
