#pragma once
// The event loop of a program without windows: what the Prolog connection needs of a host, driven by poll().
#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "prolog/host.hpp"

namespace brindle {

class PollHost : public PrologHost {
  public:
    void watch_input(int fd, std::function<void(int fd)> handler) override;
    void unwatch_input(int fd) override;
    void watch_child(pid_t pid, std::function<void(pid_t pid, int status)> handler) override;
    void unwatch_child(pid_t pid) override;
    void after(double seconds, std::function<void()> f) override;

    // Handles input, ended children and timers until done() holds (true) or the time is over (false). It may
    // be called from inside a handler.
    bool run_until(const std::function<bool()> &done, double seconds);
    // The same without end.
    void run_until(const std::function<bool()> &done);

  private:
    using Clock = std::chrono::steady_clock;
    struct Timer {
        Clock::time_point due;
        std::function<void()> f;
    };

    void handle_waiting(int most_milliseconds);
    void handle_input(int most_milliseconds);
    void handle_children();
    void handle_timers();

    std::map<int, std::function<void(int)>> inputs_;
    std::map<pid_t, std::function<void(pid_t, int)>> children_;
    std::vector<Timer> timers_;
};

}  // namespace brindle
