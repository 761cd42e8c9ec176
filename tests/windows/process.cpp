#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "windows/x_server.hpp"

namespace brindle::windows {

Deadline in_seconds(double seconds) {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(static_cast<long>(seconds * 1000));
}

int milliseconds_left(Deadline deadline) {
    const auto left = deadline - std::chrono::steady_clock::now();
    const auto count = std::chrono::duration_cast<std::chrono::milliseconds>(left).count();
    return count < 0 ? 0 : static_cast<int>(count);
}

namespace {

[[noreturn]] void run(const std::vector<std::string> &command, const std::vector<std::string> &environment,
                      const std::string &error_to) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);  // a test that is killed leaves nothing behind
    for (const std::string &setting : environment) putenv(const_cast<char *>(setting.c_str()));
    if (!error_to.empty()) {
        const int file = open(error_to.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
        dup2(file, 2);
    }
    std::vector<char *> words;
    for (const std::string &word : command) words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(127);
}

}  // namespace

Process::Process(const std::vector<std::string> &command, const std::vector<std::string> &environment,
                 const std::string &error_to, int keep) {
    pid_ = fork();
    if (pid_ > 0) handle_ = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0));
    if (pid_ != 0) return;
    if (keep >= 0) fcntl(keep, F_SETFD, 0);
    run(command, environment, error_to);
}

bool Process::runs() {
    if (pid_ > 0 && waitpid(pid_, &status_, WNOHANG) == pid_) pid_ = -1;
    return pid_ > 0;
}

void Process::halt(bool halted) {
    if (runs()) kill(pid_, halted ? SIGSTOP : SIGCONT);
}

int Process::wait(double seconds) {
    pollfd ended{handle_, POLLIN, 0};
    if (runs()) poll(&ended, 1, static_cast<int>(seconds * 1000));
    if (runs()) return -2;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
}

Process::~Process() {
    if (runs()) {
        kill(pid_, SIGTERM);
        if (wait(5) == -2) kill(pid_, SIGKILL);
        wait(5);
    }
    if (handle_ >= 0) close(handle_);
}

}  // namespace brindle::windows
