#include "gui/current_run.hpp"

#include <algorithm>
#include <chrono>
#include <utility>

#include "toolkit/display.hpp"
#include "toolkit/notifier.hpp"

namespace brindle {

namespace {

struct CurrentRun {
    TreeWindow *window = nullptr;
    std::function<void()> stop;
    int number = 0;
};

CurrentRun &current() {
    static CurrentRun run;
    return run;
}

}  // namespace

int begin_run(TreeWindow &tw, std::function<void()> stop) {
    CurrentRun &run = current();
    run.window = &tw;
    run.stop = std::move(stop);
    return ++run.number;
}

void end_run() {
    current().window = nullptr;
    if (const auto stop = std::exchange(current().stop, nullptr)) stop();
}

bool run_goes_on(int number) {
    return current().window && current().number == number;
}

TreeWindow *running_window() {
    return current().window;
}

// A run may ask between any two of a million trees; a person notices nothing below some milliseconds. The
// windows get at most a fifth of the run's time, as long as they are not kept waiting for more than a tenth
// of a second.
void dispatch_in_run() {
    using namespace std::chrono;
    static steady_clock::time_point next_dispatch;
    const auto start = steady_clock::now();
    if (start < next_dispatch) return;
    tk::notify_dispatch();
    tk::flush_display();
    const auto end = steady_clock::now();
    next_dispatch =
        end + std::clamp<steady_clock::duration>(4 * (end - start), milliseconds(5), milliseconds(100));
}

}  // namespace brindle
