#pragma once
// What the Prolog connection asks of the program around it: an event loop, the query field, the output
// window, notices, and the batch that a prompt drives on. gui/ implements it with windows, brindle-batch and
// tests with poll().
#include <sys/types.h>

#include <functional>
#include <string_view>

namespace brindle {

struct Node;
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
    // The main window's footer.
    virtual void show_query_foot(std::string_view /*text*/) {}
    // Puts text at the end of the output window and scrolls there.
    virtual void insert_output(std::string_view /*bytes*/) {}
    // A notice of the output window, and one at the query field (x + 10, y + 10), with the button "Ok" and no
    // bell. They return when the user has answered; input of the child waits meanwhile.
    virtual void notice(std::string_view /*text*/) {}
    virtual void notice_at_query(std::string_view /*text*/) {}

    // The batch (propose/): send the next query of a filter run, of an evaluation run; end the run; show an
    // answer at its node.
    virtual void go_on_filtering() {}
    virtual void go_on_evaluating() {}
    virtual void stop_batch(TreeView *) {}
    virtual void batch_prompt_at_node(Node *, std::string_view /*text*/, TreeView *) {}
};

}  // namespace brindle
