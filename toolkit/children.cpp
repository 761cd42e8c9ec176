// Ended children: a signal handler writes into a pipe of our own, and the loop reaps whom it was told of.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <map>
#include <utility>
#include <vector>

#include "toolkit/notifier.hpp"

namespace brindle::tk {

namespace {

std::map<pid_t, std::function<void(pid_t, int)>> handlers;
std::array<int, 2> wakeup{-1, -1};  // [1] is written by the signal handler

void wake(int = 0) {
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakeup[1], &byte, 1);  // a full pipe wakes as well
    errno = saved;
}

void empty_pipe() {
    std::array<char, 64> bytes{};
    while (read(wakeup[0], bytes.data(), bytes.size()) > 0) {
    }
}

void reap(int) {
    empty_pipe();
    std::vector<pid_t> watched;
    for (const auto &[pid, handler] : handlers) watched.push_back(pid);
    for (const pid_t pid : watched) {
        int status = 0;
        const pid_t ended = waitpid(pid, &status, WNOHANG);
        const bool gone = ended < 0 && errno == ECHILD;
        const auto found = handlers.find(pid);
        if ((ended != pid && !gone) || found == handlers.end()) continue;
        const auto handler = std::move(found->second);
        handlers.erase(found);
        handler(pid, status);
    }
}

void install() {
    if (wakeup[0] >= 0 || pipe2(wakeup.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    struct sigaction action {};
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART | SA_NOCLDSTOP;
    sigaction(SIGCHLD, &action, nullptr);
    set_input_handler(wakeup[0], reap);
}

}  // namespace

void set_child_handler(pid_t pid, std::function<void(pid_t pid, int status)> handler) {
    install();
    handlers[pid] = std::move(handler);
    wake();  // it may have ended already
}

void clear_child_handler(pid_t pid) {
    handlers.erase(pid);
}

}  // namespace brindle::tk
