#pragma once
// Drives a program's windows as a person does, on a private X server, and reads what they show from its
// screen map. Nothing here sleeps: every wait is for an event and has a deadline; a wait that fails throws,
// with the map.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "windows/ui_map_reader.hpp"
#include "windows/x_server.hpp"

namespace brindle::windows {

struct GuiOptions {
    bool window_manager = false;           // openbox runs (if it is installed)
    std::vector<std::string> environment;  // NAME=value
    std::string directory;                 // where the program runs; empty: a new one of its own
    bool iconic = false;                   // it starts with no window in view
};

class Gui {
  public:
    // Starts the program (its path and arguments) and waits for its first window.
    explicit Gui(std::vector<std::string> command, GuiOptions options = {});
    ~Gui();
    Gui(const Gui &) = delete;
    Gui &operator=(const Gui &) = delete;

    // What is on the screen once the program has dealt with everything so far.
    const UiMap &map();
    // Waits until the map is as wanted.
    const UiMap &wait_until(const std::string &what, const std::function<bool(const UiMap &)> &wanted);
    const ShownFrame &wait_frame(const std::string &title);
    void wait_gone(const std::string &title);
    // Waits for a line of text in the topmost frame of that title.
    void wait_line(const std::string &title, const std::string &line);
    // Waits until the frame's X window has the keyboard.
    void wait_focus(const std::string &title);

    // Presses a button by its label; in the topmost frame that has one, or in that of the title.
    void press(const std::string &label, const std::string &title = {});
    // Clicks on what they find: an item's, row's or node's middle. Buttons 1 to 3; modifiers "ctrl", "shift",
    // "".
    void click_item(const std::string &kind, const std::string &label, const std::string &title = {});
    // Where it begins: on the field of a slider.
    void click_start(const ShownItem &item);
    void click_row(const std::string &text, const std::string &title = {});
    void double_click_row(const std::string &text, const std::string &title = {});
    void click_node(const std::string &path, unsigned button = 1, const std::string &modifier = {},
                    const std::string &title = {});
    void click_at(int x, int y, unsigned button = 1, const std::string &modifier = {});
    // Brings a frame with a footer above all others that may hide it, by a click on the footer.
    void raise(const std::string &title);
    void drag(int from_x, int from_y, int to_x, int to_y, unsigned button = 1);
    // Chooses an entry of the menu that is shown, through its submenus; without any nothing is chosen.
    void choose(const std::vector<std::string> &entries);
    // Drops a choice down and takes an option.
    void choose_option(const std::string &choice, const std::string &option, const std::string &title = {});
    // Clicks into the field, selects what it holds and types over it.
    void fill(const std::string &label, const std::string &text, const std::string &title = {});
    void type(const std::string &utf8);
    void key(const std::string &name);

    // The program finds all these events waiting at once: what comes after the first meets it at work.
    void at_once(const std::function<void(XServer &)> &events);

    std::vector<std::string> lines(const std::string &title) { return map().lines(title); }
    std::string footer(const std::string &title) { return wait_frame(title).footer; }
    std::string value(const std::string &kind, const std::string &label, const std::string &title = {});
    bool active(const std::string &kind, const std::string &label, const std::string &title = {});

    void screenshot(const std::string &file) { server_.screenshot(file); }
    XServer &server() { return server_; }
    // Sends a client message as a window manager does when its close button is pressed.
    void close_window(const std::string &title);
    // Waits for the program's end; its exit status.
    int wait_exit() { return program_->wait(); }
    const std::string &directory() const { return directory_; }
    std::string error_output() const;

  private:
    void read_map();
    void sync();  // until program and window manager have dealt with everything so far
    void sync_program();
    const ShownItem &wait_item(const std::string &kind, const std::string &label, const std::string &title);
    // What it shows is an item, row or node of its frame, which must not be hidden there.
    template <class Shown>
    void click(const Shown &shown, unsigned button = 1, const std::string &modifier = {}) {
        click_in(shown.frame, shown.area, button, modifier);
    }
    void click_in(int frame, Area area, unsigned button, const std::string &modifier);
    [[noreturn]] void fail(const std::string &what);

    XServer &server_;
    std::string directory_;
    bool own_directory_;
    std::string map_file_;
    int changes_ = -1;  // inotify: the map's directory
    std::unique_ptr<Process> program_;
    UiMap map_;
    std::string map_text_;
    long sync_number_ = 0;
};

}  // namespace brindle::windows
