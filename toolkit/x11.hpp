#pragma once
// Xlib and FLTK's view of it, for the toolkit's own files.
#include <FL/platform.H>
#include <X11/Xft/Xft.h>
#include <X11/Xlib.h>

#include <memory>
#include <string>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

// The open connection; opens it if need be.
Display *x_display();

// A handle of Xlib with the function that gives it back.
template <class T, auto release>
struct XRelease {
    void operator()(T *handle) const { release(handle); }
};
using XftDrawPtr = std::unique_ptr<XftDraw, XRelease<XftDraw, XftDrawDestroy>>;

// The X atom of that name.
Atom atom(const char *name);

// Whether a window manager that follows the usual hints runs.
bool window_manager_runs();

// The top-level X window (child of the root) that holds the window; the window itself when it is one.
Window top_level_of(Window window);

// Where the window's upper left corner is on the screen, px.
Point place_on_screen(Window window);

// The usable area of the screen that holds the point, px.
Box work_area(Point at);

// Asks the window manager to give the keyboard to a window.
void ask_for_keyboard(Window window);

// Whether a window of another program has the keyboard now.
bool another_program_has_keyboard();

// Gives the keyboard to a viewable top-level window. Without a window manager nobody else does.
void focus_window(Window window);

}  // namespace brindle::tk
