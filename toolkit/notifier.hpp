#pragma once
// The event loop: windows, input on descriptors, ended children, timers. One thread; every callback runs in
// it.
#include <sys/types.h>

#include <functional>

namespace brindle::tk {

// Runs until notify_stop() or until the last frame has been destroyed.
void main_loop();

// Makes main_loop() and every nested loop return; blocking notices answer with their escape value.
void notify_stop();

// Handles all events that are waiting, without blocking, and draws what is due. For long work inside a
// callback.
void notify_dispatch();

// What Control-C does that is typed into a busy frame. Returns what it did before; empty: nothing.
std::function<void()> set_on_interrupt(std::function<void()> f);

// Calls handler(fd) whenever fd can be read or is at its end; replaces an earlier handler of fd.
void set_input_handler(int fd, std::function<void(int fd)> handler);
void clear_input_handler(int fd);

// Reaps the child when it ends (or stops being one) and calls handler(pid, wait status) once from the loop.
void set_child_handler(pid_t pid, std::function<void(pid_t pid, int status)> handler);
void clear_child_handler(pid_t pid);

// Calls f once after that many seconds; the result names the timer for cancel_timer. 0 seconds: when the loop
// is next idle.
int add_timer(double seconds, std::function<void()> f);
void cancel_timer(int timer);

}  // namespace brindle::tk
