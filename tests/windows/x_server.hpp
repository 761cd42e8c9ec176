#pragma once
// A private X server without a screen, and pointer and keyboard events in it.
#include <sys/types.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "windows/ui_map_reader.hpp"

// Xlib's header would bring its macros (Bool, None, ...) into every test.
struct _XDisplay;
union _XEvent;

namespace brindle::windows {

using XDisplay = ::_XDisplay;
using XWindow = unsigned long;
using XKeySymbol = unsigned long;

using Deadline = std::chrono::steady_clock::time_point;
Deadline in_seconds(double seconds);
int milliseconds_left(Deadline deadline);  // never negative

// A process of ours, ended and reaped with the object.
class Process {
  public:
    // environment: NAME=value, beside what this process has. The descriptors named in keep stay open in the
    // child. error_to: its standard error goes to that file.
    Process(const std::vector<std::string> &command, const std::vector<std::string> &environment = {},
            const std::string &error_to = {}, int keep = -1);
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;
    bool runs();
    void halt(bool halted);                 // stops it where it is, or lets it go on
    int handle() const { return handle_; }  // a descriptor that can be read when it has ended
    // Waits for its end; the exit status, or -1 for an end by a signal, -2 when it does not end in time.
    int wait(double seconds = 20);

  private:
    pid_t pid_ = -1;
    int handle_ = -1;
    int status_ = 0;
};

// One for a test program; started at the first use, ended with it.
class XServer {
  public:
    static XServer &get();
    ~XServer();
    const std::string &name() const { return name_; }  // ":7"
    XDisplay *display() const { return display_; }
    // Starts or ends openbox. False: openbox is not installed.
    bool run_window_manager(bool wanted);

    // Real events through XTEST.
    void move_pointer(int x, int y);
    void button(unsigned button, bool down);
    void hold(XKeySymbol key, bool down);
    // A key by name ("Return", "a"), with modifiers before it ("ctrl+shift+u", "alt+x").
    void key(const std::string &name);
    void type(const std::string &utf8);
    // Gives keys to the characters that have none; programs have to learn of that before they are typed.
    // Result: there were some.
    bool prepare(const std::string &utf8);
    // The window with that title that is in view (or not), by walking the tree; 0: there is none.
    XWindow window_titled(const std::string &title, bool in_view = true) const;
    // Waits until the window of that title has the keyboard; false: it has not got it.
    bool await_focus(const std::string &title, Deadline deadline);
    // Waits for the next X event of the given type, at most until then or until the descriptor can be read;
    // false: there was none.
    bool await_event(int type, _XEvent &event, Deadline deadline, int descriptor = -1);
    // Waits until the window manager, if one runs, has dealt with everything so far.
    void sync_manager();
    // Asks for another size of a window, as a person does at its border.
    void resize_window(const std::string &title, unsigned w, unsigned h);
    void move_window(const std::string &title, int x, int y);
    void map_window(const std::string &title);  // what was an icon is a window again
    // The colour at a place of the screen, 0xrrggbb.
    unsigned long pixel(int x, int y) const;
    // Looks now and then until that is the colour: window managers may let windows grow before one's eyes,
    // and tell nobody when they have done. False: it has another one.
    bool await_pixel(int x, int y, unsigned long colour, Deadline deadline) const;
    // Writes what is on the screen as a portable pixmap.
    void screenshot(const std::string &file);

  private:
    XServer();
    void key_symbol(XKeySymbol symbol, const std::vector<unsigned char> &modifiers);

    unsigned char spare_key(XKeySymbol symbol);

    std::map<XKeySymbol, unsigned char> spare_keys_;  // that were given a symbol no key has
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> manager_;
    std::string name_;
    XDisplay *display_ = nullptr;
    XWindow own_window_ = 0;  // never shown; the window manager is asked about it
};

}  // namespace brindle::windows
