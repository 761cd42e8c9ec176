#include "prolog/spawn.hpp"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace brindle {

namespace {

constexpr int first_free_fd = 3;

// A descriptor's copy that is no standard one, so that giving the child its standard descriptors overwrites
// nothing.
Fd above_standard(int fd) {
    Fd owner(fd);
    if (fd >= first_free_fd || fd < 0) return owner;
    return Fd(fcntl(fd, F_DUPFD_CLOEXEC, first_free_fd));
}

// A pipe's ends, neither of them a standard descriptor, both closed on exec.
struct Pipe {
    Fd read;
    Fd write;
    bool ok() const { return read.get() >= 0 && write.get() >= 0; }
};

Pipe make_pipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return {};
    return {above_standard(ends[0]), above_standard(ends[1])};
}

// In the child, where a failing write has nobody to tell.
void tell(int fd, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(fd, text.data(), text.size());
        if (written <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

void default_signals() {
    for (int number = 1; number < 64; ++number) signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

// The child's last words: exec has failed for this reason.
[[noreturn]] void give_up(const SpawnRequest &request, int reason, int status_fd) {
    tell(status_fd, "!");
    const char *program = request.arguments.front().c_str();
    errno = reason;
    if (reason == ENOENT) {
        tell(request.not_found_fd, request.arguments.front() + request.not_found);
    } else {
        perror(program);
    }
    errno = reason;
    perror("execvp");
    _exit(request.failure_status);
}

[[noreturn]] void become(const SpawnRequest &request, char *const *arguments, const Pipe &to,
                         const Pipe &from, int status_fd) {
    dup2(to.read.get(), STDIN_FILENO);
    dup2(from.write.get(), STDOUT_FILENO);
    if (request.errors_to_output) dup2(from.write.get(), STDERR_FILENO);
    if (status_fd != first_free_fd) dup3(status_fd, first_free_fd, O_CLOEXEC);
    closefrom(first_free_fd + 1);
    default_signals();
    if (!request.directory.empty() && chdir(request.directory.c_str()) != 0)
        perror(request.directory.c_str());
    execvp(arguments[0], arguments);
    give_up(request, errno, first_free_fd);
}

// Waits until the child has become the program or has failed to.
bool has_executed(int status_fd) {
    char byte;
    ssize_t got;
    do got = read(status_fd, &byte, 1);
    while (got < 0 && errno == EINTR);
    return got == 0;
}

}  // namespace

void Fd::reset(int fd) {
    if (fd_ >= 0) close(fd_);
    fd_ = fd;
}

Spawned spawn(const SpawnRequest &request) {
    std::vector<char *> arguments;
    for (const std::string &word : request.arguments) arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    Pipe to = make_pipe();
    Pipe from = make_pipe();
    Pipe status = make_pipe();
    if (!to.ok() || !from.ok() || !status.ok()) {
        perror("pipe");
        return {};
    }
    const pid_t pid = fork();
    if (pid < 0) {
        perror("fork failed");
        return {};
    }
    if (pid == 0) become(request, arguments.data(), to, from, status.write.get());
    status.write.reset();
    return {pid, has_executed(status.read.get()), std::move(to.write), std::move(from.read)};
}

ssize_t write_to_pipe(int fd, std::string_view bytes) {
    sigset_t broken;
    sigset_t before;
    sigemptyset(&broken);
    sigaddset(&broken, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &broken, &before);
    const ssize_t written = write(fd, bytes.data(), bytes.size());
    const int reason = errno;
    if (written < 0 && reason == EPIPE) {
        const timespec at_once{};
        while (sigtimedwait(&broken, nullptr, &at_once) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = reason;
    return written;
}

}  // namespace brindle
