#include "toolkit/notifier.hpp"

#include <FL/Fl.H>

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/dispatch.hpp"
#include "toolkit/display.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/text_window_impl.hpp"
#include "toolkit/ui_map.hpp"

namespace brindle::tk {

namespace {

constexpr double FOR_EVER = 1e20;
constexpr int EVENTS_MAX = 1000;  // that one dispatch handles, so that a flood of them cannot hold it up

int depth = 0;  // of loops and dispatches on the stack
bool stopping = false;
std::vector<std::function<void()>> quiet_work;
std::map<int, std::function<void(int)>> input_handlers;
std::map<int, std::function<void()>> timers;
std::function<void()> on_interrupt;

struct DepthScope {
    DepthScope() { ++depth; }
    ~DepthScope() { --depth; }
    DepthScope(const DepthScope &) = delete;
    DepthScope &operator=(const DepthScope &) = delete;
};

void draw_due() {
    flush_all_output();
    repaint_due_canvases();
    Fl::flush();
}

void run_quiet_work() {
    if (depth != 1) return;
    const auto work = std::exchange(quiet_work, {});
    for (const auto &f : work) f();
}

void on_input(int fd, void *) {
    const auto found = input_handlers.find(fd);
    if (found == input_handlers.end()) return;
    const auto handler = found->second;  // it may replace or remove itself
    handler(fd);
}

void on_timer(void *data) {
    const auto timer = static_cast<int>(reinterpret_cast<std::intptr_t>(data));
    const auto found = timers.find(timer);
    if (found == timers.end()) return;
    const auto f = std::move(found->second);
    timers.erase(found);
    f();
}

void *as_data(int timer) {
    return reinterpret_cast<void *>(static_cast<std::intptr_t>(timer));
}

}  // namespace

void loop_until(const std::function<bool()> &done) {
    open_display();
    const DepthScope scope;
    Fl::pushed(nullptr);
    while (!stopping && !done()) {
        run_quiet_work();
        draw_due();
        if (Fl::ready()) {
            Fl::wait(0);
        } else {
            update_ui_map();
            Fl::wait(FOR_EVER);
        }
    }
}

void when_quiet(std::function<void()> f) {
    quiet_work.push_back(std::move(f));
}

void main_loop() {
    stopping = false;
    loop_until([] { return live_frames() == 0; });
    run_quiet_work();
}

void notify_stop() {
    stopping = true;
    Fl::awake();
}

void notify_dispatch() {
    open_display();
    const DepthScope scope;
    for (int n = 0; n < EVENTS_MAX && Fl::ready(); ++n) Fl::wait(0);
    draw_due();
    update_ui_map();
}

void flush_display() {
    open_display();
    draw_due();
}

std::function<void()> set_on_interrupt(std::function<void()> f) {
    return std::exchange(on_interrupt, std::move(f));
}

void interrupt() {
    const auto f = on_interrupt;
    if (f) f();
}

void set_input_handler(int fd, std::function<void(int fd)> handler) {
    constexpr int at_end = 0x10;  // poll's POLLHUP: a pipe at its end
    input_handlers[fd] = std::move(handler);
    Fl::remove_fd(fd);
    Fl::add_fd(fd, FL_READ | at_end, on_input);
}

void clear_input_handler(int fd) {
    Fl::remove_fd(fd);
    input_handlers.erase(fd);
}

int add_timer(double seconds, std::function<void()> f) {
    static int last = 0;
    timers[++last] = std::move(f);
    Fl::add_timeout(seconds, on_timer, as_data(last));
    return last;
}

void cancel_timer(int timer) {
    timers.erase(timer);
    Fl::remove_timeout(on_timer, as_data(timer));
}

}  // namespace brindle::tk
