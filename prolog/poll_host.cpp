#include "prolog/poll_host.hpp"

#include <poll.h>
#include <sys/wait.h>

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

constexpr int longest_sleep = 20;  // milliseconds: the end of a child is noticed this late

}  // namespace

void PollHost::watch_input(int fd, std::function<void(int)> handler) {
    inputs_[fd] = std::move(handler);
}

void PollHost::unwatch_input(int fd) {
    inputs_.erase(fd);
}

void PollHost::watch_child(pid_t pid, std::function<void(pid_t, int)> handler) {
    children_[pid] = std::move(handler);
}

void PollHost::unwatch_child(pid_t pid) {
    children_.erase(pid);
}

void PollHost::after(double seconds, std::function<void()> f) {
    const auto delay = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    timers_.push_back({Clock::now() + delay, std::move(f)});
}

bool PollHost::run_until(const std::function<bool()> &done, double seconds) {
    const auto limit = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    const Clock::time_point end = Clock::now() + limit;
    while (!done()) {
        if (Clock::now() >= end) return false;
        handle_waiting(longest_sleep);
    }
    return true;
}

void PollHost::run_until(const std::function<bool()> &done) {
    while (!done()) handle_waiting(longest_sleep);
}

void PollHost::handle_waiting(int most_milliseconds) {
    handle_input(most_milliseconds);
    handle_children();
    handle_timers();
}

// A handler may watch and unwatch as it likes, so each is looked up when its turn comes.
void PollHost::handle_input(int most_milliseconds) {
    std::vector<pollfd> fds;
    for (const auto &[fd, handler] : inputs_) fds.push_back({fd, POLLIN, 0});
    if (poll(fds.data(), fds.size(), most_milliseconds) <= 0) return;
    for (const pollfd &state : fds) {
        const auto found = inputs_.find(state.fd);
        if (!state.revents || found == inputs_.end()) continue;
        const auto handler = found->second;
        handler(state.fd);
    }
}

void PollHost::handle_children() {
    std::vector<pid_t> pids;
    for (const auto &[pid, handler] : children_) pids.push_back(pid);
    for (const pid_t pid : pids) {
        int status = 0;
        if (!children_.contains(pid) || waitpid(pid, &status, WNOHANG) != pid) continue;
        const auto handler = children_.extract(pid).mapped();
        handler(pid, status);
    }
}

void PollHost::handle_timers() {
    const Clock::time_point now = Clock::now();
    const auto later = [now](const Timer &timer) { return timer.due > now; };
    const auto first_due = std::stable_partition(timers_.begin(), timers_.end(), later);
    std::vector<Timer> due(std::make_move_iterator(first_due), std::make_move_iterator(timers_.end()));
    timers_.erase(first_due, timers_.end());
    for (const Timer &timer : due) timer.f();
}

}  // namespace brindle
