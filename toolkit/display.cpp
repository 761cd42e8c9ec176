#include "toolkit/display.hpp"

#include <FL/Fl.H>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "toolkit/dispatch.hpp"
#include "toolkit/look.hpp"
#include "toolkit/notifier.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/x11.hpp"
#include "toolkit/x_options.hpp"

namespace brindle::tk {

namespace {

// Windows come and go while requests about them are under way: an error about one is nothing to report or die
// of.
int ignore_x_error(Display *, XErrorEvent *) {
    return 0;
}

double number_or(const char *text, double otherwise) {
    if (!text || !*text) return otherwise;
    char *end = nullptr;
    const double value = std::strtod(text, &end);
    return end == text || !(value > 0) ? otherwise : value;
}

double find_scale() {
    const double dpi = number_or(XGetDefault(fl_display, "Xft", "dpi"), 96);
    const double asked = number_or(std::getenv("BRINDLE_SCALE"), dpi / 96);
    return std::clamp(number_or(x_options().scale.c_str(), asked), 0.5, 4.0);
}

// FLTK sets the locale of character types from the environment; the program's own choice is to stay.
void open_fltk(Display *connection) {
    const std::string locale = std::setlocale(LC_CTYPE, nullptr);
    fl_open_display(connection);
    std::setlocale(LC_CTYPE, locale.c_str());
}

}  // namespace

void open_display() {
    if (fl_display) return;
    const std::string &wanted = x_options().display;
    const char *name = wanted.empty() ? nullptr : wanted.c_str();
    Display *connection = XOpenDisplay(name);
    if (!connection) {
        std::fprintf(stderr, "%s: cannot open the display \"%s\"\n", x_options().program.c_str(),
                     XDisplayName(name));
        std::exit(1);
    }
    if (name) setenv("DISPLAY", name, 1);
    open_fltk(connection);
    XSetErrorHandler(ignore_x_error);
    install_dispatch();
    set_up_look();
}

Display *x_display() {
    open_display();
    return fl_display;
}

double scale() {
    open_display();
    static const double factor = find_scale();
    return factor;
}

Size screen_size() {
    const Box area = work_area({0, 0});
    return {unscaled(area.w), unscaled(area.h)};
}

void bell() {
    XBell(x_display(), 0);
}

}  // namespace brindle::tk
