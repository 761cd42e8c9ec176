#pragma once
// What a Prolog session asks of the program around it: an event loop, the query field, the output window,
// notices and footers. The workbench implements it with windows, brindle-batch and tests with poll().
#include <sys/types.h>

#include <functional>
#include <string_view>

namespace brindle {

class Node;
struct TreeView;

struct PrologHost {
    virtual ~PrologHost() = default;

    // The event loop. handler(fd) is called whenever fd can be read or is at its end.
    virtual void watch_input(int fd, std::function<void(int fd)> handler) = 0;
    virtual void unwatch_input(int fd) = 0;
    // Reaps the child when it has ended and calls the handler once with its wait status.
    virtual void watch_child(pid_t pid, std::function<void(pid_t pid, int status)> handler) = 0;
    virtual void unwatch_child(pid_t pid) = 0;
    // Calls f once after that many seconds.
    virtual void after(double seconds, std::function<void()> f) = 0;

    // The query field of the main window: its label, whether it takes input, its value.
    virtual void set_query_label(std::string_view /*label*/) {}
    virtual void set_query_active(bool /*active*/) {}
    virtual void set_query_value(std::string_view /*value*/) {}
    // Puts text at the end of the output window and scrolls there.
    virtual void insert_output(std::string_view /*bytes*/) {}
    // The left footer of the window; null: of the main window.
    virtual void show_foot(TreeView *, std::string_view /*text*/) {}

    // Notices with the button "Ok". They return when the user has answered; the child's output waits
    // meanwhile. One of the output window and one at the query field (x + 10, y + 10), both without a bell.
    virtual void notice(std::string_view /*text*/) {}
    virtual void notice_at_query(std::string_view /*text*/) {}
    // One at the node, brought into view in that window, with the bell.
    virtual void prompt_at_node(Node *, std::string_view /*text*/, TreeView *) {}
};

}  // namespace brindle
