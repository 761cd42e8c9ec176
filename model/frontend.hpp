#pragma once
// What the core asks of whoever shows it: windows, a shell program, or a recording fake in tests.
#include <string>
#include <string_view>

namespace brindle {

struct Node;

// One tree window as the core knows it. gui/'s TreeWindow derives from it.
struct TreeView {
    virtual ~TreeView() = default;
    std::string predicate;  // the evaluation predicate
    bool predicate_is_null =
        false;  // the requestor was answered with an empty predicate (a new window's is "" instead)
    int show_punctuation = 0;  // punctuation daughters are laid out, drawn and exported
};

// The interface towards the user. "silent" is the notice's own option: true = without the bell. Every
// function but `prompt` returns when the user has answered; the base class does nothing, which suits programs
// without windows.
struct FrontEnd {
    virtual ~FrontEnd() = default;

    // A notice of the window with the one button "Ok".
    virtual void prompt(TreeView *, std::string_view /*message*/, bool /*silent*/) {}
    // Brings the node into view and shows a notice pointing at it, with the button "Ok".
    virtual void prompt_at_node(const Node *, std::string_view /*message*/, TreeView *, bool /*silent*/) {}
    // Lays the window's tree out and draws it again.
    virtual void tree_GUI_repaint(TreeView *) {}
    // Sets the window's left footer; "" clears it.
    virtual void show_foot(TreeView *, std::string_view /*text*/) {}
    // Shows that tree (0-based) in the window.
    virtual void show_nr(int /*tree*/, TreeView *) {}
    // Marks the window's own frame busy or idle.
    virtual void frame_busy(TreeView *, bool) {}
    // Marks all frames of the program busy or idle.
    virtual void all_frames_busy(TreeView *, bool) {}
    // Handles what the user has done meanwhile and draws what is due; called between two trees of a run.
    virtual void notify_dispatch() {}
    // A line for the terminal the program was started from: standard output, unless results go there.
    virtual void print(std::string_view line);
    // A run tells how far it is: n of m trees done.
    virtual void progress(TreeView *, int /*n*/, int /*m*/) {}
};

extern FrontEnd *frontend;  // never null; set once by each program (and by tests), used by the core

// The front end that does nothing, `frontend`'s start value.
FrontEnd *silent_frontend();

}  // namespace brindle
