#include "toolkit/x11.hpp"

#include <FL/Fl.H>
#include <X11/Xatom.h>

#include <vector>

namespace brindle::tk {

namespace {

// The first window-valued (or cardinal) property items of a window; empty when there is none of that type.
std::vector<unsigned long> property(Window window, const char *name, Atom type) {
    Atom actual = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    const int status = XGetWindowProperty(x_display(), window, atom(name), 0, 64, False, type, &actual,
                                          &format, &count, &left, &data);
    std::vector<unsigned long> values;
    if (status == Success && data && format == 32) {
        const auto *items = reinterpret_cast<const unsigned long *>(data);
        values.assign(items, items + count);
    }
    if (data) XFree(data);
    return values;
}

}  // namespace

Atom atom(const char *name) {
    return XInternAtom(x_display(), name, False);
}

bool window_manager_runs() {
    const auto check = property(DefaultRootWindow(x_display()), "_NET_SUPPORTING_WM_CHECK", XA_WINDOW);
    if (check.empty()) return false;
    // A manager that has ended leaves the property behind, but not its window.
    return !property(check[0], "_NET_SUPPORTING_WM_CHECK", XA_WINDOW).empty();
}

Window top_level_of(Window window) {
    Display *display = x_display();
    while (true) {
        Window root = None;
        Window parent = None;
        Window *children = nullptr;
        unsigned count = 0;
        if (!XQueryTree(display, window, &root, &parent, &children, &count)) return window;
        if (children) XFree(children);
        if (parent == root || parent == None) return window;
        window = parent;
    }
}

Point place_on_screen(Window window) {
    int x = 0;
    int y = 0;
    Window child = None;
    XTranslateCoordinates(x_display(), window, DefaultRootWindow(x_display()), 0, 0, &x, &y, &child);
    return {x, y};
}

Box work_area(Point at) {
    x_display();
    Box area;
    Fl::screen_work_area(area.x, area.y, area.w, area.h, at.x, at.y);
    return area;
}

void ask_for_keyboard(Window window) {
    constexpr long user_asks =
        2;  // not subject to what keeps programs from fetching the keyboard by themselves
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = window;
    message.xclient.message_type = atom("_NET_ACTIVE_WINDOW");
    message.xclient.format = 32;
    message.xclient.data.l[0] = user_asks;
    message.xclient.data.l[1] = static_cast<long>(fl_event_time);
    XSendEvent(x_display(), DefaultRootWindow(x_display()), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &message);
}

bool another_program_has_keyboard() {
    Window window = None;
    int revert = 0;
    XGetInputFocus(x_display(), &window, &revert);
    if (window == None || window == PointerRoot || fl_find(window)) return false;
    return !property(window, "WM_STATE", atom("WM_STATE")).empty();
}

void focus_window(Window window) {
    XWindowAttributes attributes;
    if (!window || !XGetWindowAttributes(x_display(), window, &attributes)) return;
    if (attributes.map_state == IsViewable) {
        XSetInputFocus(x_display(), window, RevertToPointerRoot, CurrentTime);
    }
}

}  // namespace brindle::tk
