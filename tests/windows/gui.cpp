#include "windows/gui.hpp"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace brindle::windows {

namespace {

constexpr double PATIENCE = 20;  // seconds

std::string new_directory() {
    std::string name = (std::filesystem::temp_directory_path() / "windows-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary directory");
    return name;
}

std::string contents(const std::string &file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// A property of one 32-bit value; 0 when it is not there.
unsigned long property(Display *display, Window window, const char *name, Atom type) {
    Atom actual = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1, False, type, &actual,
                       &format, &count, &left, &data);
    const unsigned long value = count > 0 ? *reinterpret_cast<unsigned long *>(data) : 0;
    if (data) XFree(data);
    return value;
}

// What settings and the desktop of whoever runs the tests say is not for the program: it keeps its own in
// that directory.
std::vector<std::string> on_a_bare_desktop(const std::string &settings) {
    return {"QT_QPA_PLATFORM=xcb",
            "QT_QPA_PLATFORMTHEME=",
            "QT_STYLE_OVERRIDE=",
            "QT_SCALE_FACTOR=",
            "QT_FONT_DPI=96",
            "XDG_CURRENT_DESKTOP=",
            "XDG_CONFIG_HOME=" + settings + "/config",
            "XDG_STATE_HOME=" + settings + "/state",
            "XDG_DATA_HOME=" + settings + "/data",
            "XDG_RUNTIME_DIR=" + settings,
            LEAKS_OF_OTHERS};
}

// In a directory of its own, a program finds files by the names that the test gave them.
std::vector<std::string> in_directory(const std::string &directory, const std::vector<std::string> &command) {
    std::vector<std::string> words{"sh", "-c", "cd \"$0\" && exec \"$@\"", directory};
    words.insert(words.end(), command.begin(), command.end());
    return words;
}

}  // namespace

Gui::Gui(std::vector<std::string> command, GuiOptions options)
    : server_(XServer::get()),
      directory_(options.directory.empty() ? new_directory() : options.directory),
      own_directory_(options.directory.empty()),
      map_file_(new_directory() + "/map"),
      changes_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    server_.run_window_manager(options.window_manager);
    XDeleteProperty(server_.display(), DefaultRootWindow(server_.display()),
                    XInternAtom(server_.display(), "BRINDLE_UI_SYNC_WINDOW", False));
    server_.move_pointer(1279, 999);
    const std::string map_directory = std::filesystem::path(map_file_).parent_path().string();
    inotify_add_watch(changes_, map_directory.c_str(), IN_MOVED_TO);
    std::vector<std::string> environment = on_a_bare_desktop(map_directory);
    environment.insert(environment.end(), options.environment.begin(), options.environment.end());
    environment.push_back("DISPLAY=" + server_.name());
    environment.push_back("BRINDLE_UI_MAP=" + map_file_);
    program_ =
        std::make_unique<Process>(in_directory(directory_, command), environment, map_directory + "/errors");
    const auto started = [&](const UiMap &map) {
        return map.serial > 0 && (options.iconic || !map.frames.empty());
    };
    wait_until("a first window", started);
}

Gui::~Gui() {
    program_.reset();
    close(changes_);
    std::filesystem::remove_all(std::filesystem::path(map_file_).parent_path());
    if (own_directory_) std::filesystem::remove_all(directory_);
}

std::string Gui::error_output() const {
    return contents((std::filesystem::path(map_file_).parent_path() / "errors").string());
}

void Gui::fail(const std::string &what) {
    const std::string state = program_->runs() ? "" : "\nthe program has ended";
    throw std::runtime_error(what + state + "\n" + error_output() + map_text_);
}

void Gui::read_map() {
    map_text_ = contents(map_file_);
    map_ = parse_ui_map(map_text_);
}

// What the one has done may be something for the other to deal with.
void Gui::sync() {
    for (int round = 0; round < 2; ++round) {
        server_.sync_manager();
        sync_program();
    }
}

void Gui::sync_program() {
    Display *display = server_.display();
    const Window root = DefaultRootWindow(display);
    const Window window = property(display, root, "BRINDLE_UI_SYNC_WINDOW", XA_WINDOW);
    if (!window) return;
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = window;
    message.xclient.message_type = XInternAtom(display, "BRINDLE_UI_SYNC", False);
    message.xclient.format = 32;
    message.xclient.data.l[0] = ++sync_number_;
    XSendEvent(display, window, False, 0, &message);
    XFlush(display);
    const Deadline deadline = in_seconds(PATIENCE);
    XEvent event;
    while (property(display, root, "BRINDLE_UI_SYNC", XA_CARDINAL) !=
           static_cast<unsigned long>(sync_number_)) {
        const bool changed = server_.await_event(PropertyNotify, event, deadline, program_->handle());
        if (!program_->runs()) return;
        if (!changed) fail("the program does not answer");
    }
}

const UiMap &Gui::map() {
    sync();
    read_map();
    return map_;
}

const UiMap &Gui::wait_until(const std::string &what, const std::function<bool(const UiMap &)> &wanted) {
    const Deadline deadline = in_seconds(PATIENCE);
    sync();
    while (true) {
        char events[4096];
        while (read(changes_, events, sizeof events) > 0) {
        }
        read_map();
        if (wanted(map_)) return map_;
        pollfd waiting{changes_, POLLIN, 0};
        if (!program_->runs() || poll(&waiting, 1, milliseconds_left(deadline)) <= 0) fail("no " + what);
    }
}

const ShownFrame &Gui::wait_frame(const std::string &title) {
    const auto shown = [&](const UiMap &map) { return map.frame(title) != nullptr; };
    return *wait_until("frame \"" + title + "\"", shown).frame(title);
}

void Gui::wait_gone(const std::string &title) {
    wait_until("end of frame \"" + title + "\"", [&](const UiMap &map) { return !map.frame(title); });
}

void Gui::wait_line(const std::string &title, const std::string &line) {
    wait_until("line \"" + line + "\"", [&](const UiMap &map) { return map.has_line(title, line); });
}

void Gui::wait_focus(const std::string &title) {
    wait_frame(title);
    if (!server_.await_focus(title, in_seconds(PATIENCE))) fail("no keyboard for \"" + title + "\"");
    sync();
}

const ShownItem &Gui::wait_item(const std::string &kind, const std::string &label, const std::string &title) {
    const auto there = [&](const UiMap &map) {
        const ShownItem *item = map.item(kind, label, title);
        return item && item->active;
    };
    return *wait_until("active " + kind + " \"" + label + "\"", there).item(kind, label, title);
}

std::string Gui::value(const std::string &kind, const std::string &label, const std::string &title) {
    const ShownItem *item = map().item(kind, label, title);
    if (!item) fail("no " + kind + " \"" + label + "\"");
    return item->value;
}

bool Gui::active(const std::string &kind, const std::string &label, const std::string &title) {
    const ShownItem *item = map().item(kind, label, title);
    return item && item->active;
}

void Gui::close_window(const std::string &title) {
    Display *display = server_.display();
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = server_.window_titled(title);
    message.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    message.xclient.format = 32;
    message.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, message.xclient.window, False, 0, &message);
    sync();
}

}  // namespace brindle::windows
