#include "windows/x_server.hpp"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace brindle::windows {

namespace {

std::string start_server(std::unique_ptr<Process> &server) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const std::vector<std::string> command{
        "Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", "1280x1000x24", "-nolisten", "tcp"};
    server = std::make_unique<Process>(command, std::vector<std::string>{}, "/dev/null", ends[1]);
    close(ends[1]);
    std::string number;
    char byte = 0;
    while (read(ends[0], &byte, 1) == 1 && byte != '\n') number += byte;
    close(ends[0]);
    if (number.empty()) throw std::runtime_error("Xvfb did not start");
    return ":" + number;
}

bool installed(const std::string &program) {
    Process found({"sh", "-c", "command -v " + program + " > /dev/null"});
    return found.wait() == 0;
}

std::vector<XKeySymbol> symbols_of(const std::string &utf8) {
    std::vector<XKeySymbol> symbols;
    std::size_t n = 0;
    while (n < utf8.size()) {
        const auto lead = static_cast<unsigned char>(utf8[n++]);
        const int more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        unsigned long code = more == 0 ? lead : lead & (0x3FUL >> more);
        for (int k = 0; k < more; ++k) code = (code << 6) | (static_cast<unsigned char>(utf8[n++]) & 0x3FUL);
        symbols.push_back(code == '\n' ? XK_Return : code < 0x100 ? code : 0x1000000 | code);
    }
    return symbols;
}

bool manager_present(Display *display) {
    const Atom check = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), check, 0, 1, False, XA_WINDOW, &type, &format,
                       &count, &left, &data);
    if (data) XFree(data);
    return count > 0;
}

}  // namespace

XServer &XServer::get() {
    static XServer server;
    return server;
}

XServer::XServer() {
    name_ = start_server(server_);
    display_ = XOpenDisplay(name_.c_str());
    if (!display_) throw std::runtime_error("cannot open " + name_);
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });  // windows may go while they are looked at
    const Window root = DefaultRootWindow(display_);
    XSelectInput(display_, root, PropertyChangeMask);
    own_window_ = XCreateSimpleWindow(display_, root, 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(display_, own_window_, PropertyChangeMask);
}

XServer::~XServer() {
    manager_.reset();
    XCloseDisplay(display_);
}

bool XServer::run_window_manager(bool wanted) {
    if (wanted == static_cast<bool>(manager_)) return true;
    const Atom check = XInternAtom(display_, "_NET_SUPPORTING_WM_CHECK", False);
    if (!wanted) {
        manager_.reset();
        XDeleteProperty(display_, DefaultRootWindow(display_), check);
        XSync(display_, False);
        return true;
    }
    if (!installed("openbox")) return false;
    manager_ = std::make_unique<Process>(std::vector<std::string>{"openbox", "--sm-disable"},
                                         std::vector<std::string>{"DISPLAY=" + name_}, "/dev/null");
    const Deadline deadline = in_seconds(20);
    XEvent event;
    while (!manager_present(display_)) {
        if (!await_event(PropertyNotify, event, deadline)) throw std::runtime_error("openbox did not start");
    }
    sync_manager();
    return true;
}

bool XServer::await_event(int type, XEvent &event, Deadline deadline, int descriptor) {
    while (true) {
        if (XCheckTypedEvent(display_, type, &event)) return true;
        std::array<pollfd, 2> waiting{{{ConnectionNumber(display_), POLLIN, 0}, {descriptor, POLLIN, 0}}};
        const int ready = poll(waiting.data(), waiting.size(), milliseconds_left(deadline));
        if (ready <= 0 || waiting[1].revents) return XCheckTypedEvent(display_, type, &event);
    }
}

// The window manager is asked for the extents of a frame and answers with a property: after all events
// before. While it starts it may overhear the question.
void XServer::sync_manager() {
    if (!manager_) return;
    const Atom extents = XInternAtom(display_, "_NET_FRAME_EXTENTS", False);
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = own_window_;
    message.xclient.message_type = XInternAtom(display_, "_NET_REQUEST_FRAME_EXTENTS", False);
    message.xclient.format = 32;
    XDeleteProperty(display_, own_window_, extents);
    for (int attempt = 0; attempt < 200; ++attempt) {
        XSendEvent(display_, DefaultRootWindow(display_), False,
                   SubstructureRedirectMask | SubstructureNotifyMask, &message);
        XFlush(display_);
        XEvent event{};
        const Deadline deadline = in_seconds(0.1);
        while (await_event(PropertyNotify, event, deadline)) {
            const XPropertyEvent &changed = event.xproperty;
            const bool answer = changed.window == own_window_ && changed.atom == extents;
            if (answer && changed.state == PropertyNewValue) return;
        }
    }
    throw std::runtime_error("openbox does not answer");
}

void XServer::move_pointer(int x, int y) {
    XTestFakeMotionEvent(display_, DefaultScreen(display_), x, y, CurrentTime);
    XSync(display_, False);
}

void XServer::button(unsigned button, bool down) {
    XTestFakeButtonEvent(display_, button, down, CurrentTime);
    XSync(display_, False);
}

void XServer::hold(KeySym key, bool down) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, key), down, CurrentTime);
    XSync(display_, False);
}

// Programs learn of a new symbol with the next event, so each gets a key of its own.
unsigned char XServer::spare_key(XKeySymbol symbol) {
    if (const auto known = spare_keys_.find(symbol); known != spare_keys_.end()) return known->second;
    for (int code = 255; code > 8; --code) {
        const auto key = static_cast<KeyCode>(code);
        if (XkbKeycodeToKeysym(display_, key, 0, 0) != NoSymbol) continue;
        std::array<KeySym, 2> both{symbol, symbol};
        XChangeKeyboardMapping(display_, code, 2, both.data(), 1);
        XSync(display_, False);
        return spare_keys_[symbol] = key;
    }
    throw std::runtime_error("no key is left");
}

void XServer::key_symbol(KeySym symbol, const std::vector<KeyCode> &modifiers) {
    KeyCode code = XKeysymToKeycode(display_, symbol);
    if (!code) code = spare_key(symbol);
    const bool shifted = XkbKeycodeToKeysym(display_, code, 0, 0) != symbol &&
                         XkbKeycodeToKeysym(display_, code, 0, 1) == symbol;
    std::vector<KeyCode> held = modifiers;
    if (shifted) held.push_back(XKeysymToKeycode(display_, XK_Shift_L));
    for (const KeyCode modifier : held) XTestFakeKeyEvent(display_, modifier, True, CurrentTime);
    XTestFakeKeyEvent(display_, code, True, CurrentTime);
    XTestFakeKeyEvent(display_, code, False, CurrentTime);
    for (const KeyCode modifier : held) XTestFakeKeyEvent(display_, modifier, False, CurrentTime);
    XSync(display_, False);
}

void XServer::key(const std::string &name) {
    std::vector<KeyCode> modifiers;
    std::string rest = name;
    const auto take = [&](const std::string &prefix, KeySym symbol) {
        if (!rest.starts_with(prefix)) return;
        modifiers.push_back(XKeysymToKeycode(display_, symbol));
        rest = rest.substr(prefix.size());
    };
    take("ctrl+", XK_Control_L);
    take("alt+", XK_Alt_L);
    take("shift+", XK_Shift_L);
    const KeySym symbol = XStringToKeysym(rest.c_str());
    if (symbol == NoSymbol) throw std::runtime_error("no key is called " + rest);
    key_symbol(symbol, modifiers);
}

bool XServer::prepare(const std::string &utf8) {
    const std::size_t before = spare_keys_.size();
    for (const XKeySymbol symbol : symbols_of(utf8)) {
        if (!XKeysymToKeycode(display_, symbol)) spare_key(symbol);
    }
    return spare_keys_.size() > before;
}

void XServer::type(const std::string &utf8) {
    for (const XKeySymbol symbol : symbols_of(utf8)) key_symbol(symbol, {});
}

}  // namespace brindle::windows
