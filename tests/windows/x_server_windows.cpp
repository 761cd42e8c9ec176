// The windows and the colours on the screen.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>

#include <cstdio>

#include "windows/x_server.hpp"

namespace brindle::windows {

namespace {

std::string title_of(Display *display, Window window) {
    char *name = nullptr;
    std::string title;
    if (XFetchName(display, window, &name) && name) title = name;
    if (name) XFree(name);
    return title;
}

std::vector<Window> children_of(Display *display, Window window) {
    Window root = None;
    Window parent = None;
    Window *children = nullptr;
    unsigned count = 0;
    std::vector<Window> found;
    if (XQueryTree(display, window, &root, &parent, &children, &count))
        found.assign(children, children + count);
    if (children) XFree(children);
    return found;
}

// The key symbols of a text.

}  // namespace

Window XServer::window_titled(const std::string &title, bool in_view) const {
    std::vector<Window> waiting{DefaultRootWindow(display_)};
    while (!waiting.empty()) {
        const Window window = waiting.back();
        waiting.pop_back();
        XWindowAttributes attributes;
        const bool known = XGetWindowAttributes(display_, window, &attributes) != 0;
        if (known && (attributes.map_state == IsViewable) == in_view && title_of(display_, window) == title)
            return window;
        for (const Window child : children_of(display_, window)) waiting.push_back(child);
    }
    return None;
}

bool XServer::await_focus(const std::string &title, Deadline deadline) {
    const Window window = window_titled(title);
    if (!window) return false;
    XSelectInput(display_, window, FocusChangeMask);
    XEvent event;
    while (true) {
        Window focused = None;
        int revert = 0;
        XGetInputFocus(display_, &focused, &revert);
        if (focused == window) return true;
        if (!await_event(FocusIn, event, deadline)) return false;
    }
}

void XServer::resize_window(const std::string &title, unsigned w, unsigned h) {
    XResizeWindow(display_, window_titled(title), w, h);
    XSync(display_, False);
}

void XServer::move_window(const std::string &title, int x, int y) {
    XMoveWindow(display_, window_titled(title), x, y);
    XSync(display_, False);
}

void XServer::map_window(const std::string &title) {
    XMapWindow(display_, window_titled(title, false));
    XSync(display_, False);
}

unsigned long XServer::pixel(int x, int y) const {
    XImage *image = XGetImage(display_, DefaultRootWindow(display_), x, y, 1, 1, AllPlanes, ZPixmap);
    const unsigned long pixel = image ? XGetPixel(image, 0, 0) & 0xFFFFFF : 0;
    if (image) XDestroyImage(image);
    return pixel;
}

bool XServer::await_pixel(int x, int y, unsigned long colour, Deadline deadline) const {
    while (pixel(x, y) != colour) {
        if (milliseconds_left(deadline) == 0) return false;
        poll(nullptr, 0, 20);
    }
    return true;
}

void XServer::screenshot(const std::string &file) {
    const auto width = static_cast<unsigned>(DisplayWidth(display_, DefaultScreen(display_)));
    const auto height = static_cast<unsigned>(DisplayHeight(display_, DefaultScreen(display_)));
    XImage *image = XGetImage(display_, DefaultRootWindow(display_), 0, 0, width, height, AllPlanes, ZPixmap);
    std::FILE *out = image ? std::fopen(file.c_str(), "wb") : nullptr;
    if (out) {
        std::fprintf(out, "P6\n%u %u\n255\n", width, height);
        for (int y = 0; y < static_cast<int>(height); ++y) {
            for (int x = 0; x < static_cast<int>(width); ++x) {
                const unsigned long pixel = XGetPixel(image, x, y);
                for (const int shift : {16, 8, 0}) std::fputc(static_cast<int>((pixel >> shift) & 0xFF), out);
            }
        }
        std::fclose(out);
    }
    if (image) XDestroyImage(image);
}

}  // namespace brindle::windows
