#pragma once
// Programs run as children on pipes.
#include <sys/types.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindle {

// An open descriptor and its owner; -1: none.
class Fd {
  public:
    Fd() = default;
    explicit Fd(int fd) : fd_(fd) {}
    ~Fd() { reset(); }
    Fd(Fd &&other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Fd &operator=(Fd &&other) noexcept {
        if (this != &other) reset(std::exchange(other.fd_, -1));
        return *this;
    }
    int get() const { return fd_; }
    // Gives the descriptor away.
    int release() { return std::exchange(fd_, -1); }
    // Closes the descriptor and takes another.
    void reset(int fd = -1);

  private:
    int fd_ = -1;
};

// What a child is started with.
struct SpawnRequest {
    std::vector<std::string> arguments;  // the program, searched along the path, and its arguments; not empty
    bool errors_to_output = false;       // standard error too; else it stays as it is
    std::string directory;               // changed to first unless empty; a failure is told on standard error
    std::string not_found;               // written when the program is not found, after its name
    int not_found_fd = 2;                // to this descriptor
    int failure_status = 255;            // the child's exit status when it cannot be executed
};

// A child, and the other ends of its standard input and output.
struct Spawned {
    pid_t pid = -1;         // -1: no pipe or no process could be had; the reason is on standard error
    bool executed = false;  // false: the program could not be executed; the child has ended or is about to
    Fd to;
    Fd from;
};

// Starts the program on two pipes, with every signal at its default and no other descriptor open. A program
// that cannot be executed says so as the request asks and ends with the request's status.
Spawned spawn(const SpawnRequest &request);

// write(2) to a pipe; without a reader it fails with EPIPE and no signal is left behind.
ssize_t write_to_pipe(int fd, std::string_view bytes);

}  // namespace brindle
