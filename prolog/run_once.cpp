#include "prolog/run_once.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "prolog/spawn.hpp"

namespace brindle {

namespace {

constexpr std::size_t chunk_size = OUTPUT_MAX;
// A program that writes on and on is listened to, but no more than this of it is kept: enough for every chunk
// that could still fit, and for telling how many did not.
constexpr std::size_t most_kept = std::size_t{1} << 24;

void write_some(Fd &to, std::string_view &input) {
    const ssize_t written = input.empty() ? 0 : write_to_pipe(to.get(), input);
    if (written > 0) input.remove_prefix(static_cast<std::size_t>(written));
    const bool again = written < 0 && (errno == EAGAIN || errno == EINTR);
    if (input.empty() || (written < 0 && !again)) to.reset();
}

void read_some(Fd &from, std::string &written) {
    char bytes[65536];
    const ssize_t got = read(from.get(), bytes, sizeof bytes);
    if (got < 0 && errno == EINTR) return;
    if (got <= 0) {
        from.reset();
    } else if (written.size() < most_kept) {
        written.append(bytes, static_cast<std::size_t>(got));
    }
}

// Writes the input and reads what the program writes, as the one and the other are possible, up to its end.
std::string exchange(Fd to, Fd from, std::string_view input) {
    std::string written;
    fcntl(to.get(), F_SETFL, O_NONBLOCK);
    write_some(to, input);
    while (from.get() >= 0) {
        pollfd fds[] = {{from.get(), POLLIN, 0}, {to.get(), POLLOUT, 0}};
        if (poll(fds, 2, -1) < 0 && errno != EINTR) break;
        if (fds[1].revents) write_some(to, input);
        if (fds[0].revents) read_some(from, written);
    }
    return written;
}

}  // namespace

RunOutput run_once(std::string_view input, const std::vector<std::string> &arguments,
                   const std::string &directory) {
    SpawnRequest request;
    request.arguments = arguments;
    request.errors_to_output = true;
    request.directory = directory;
    request.not_found = ":file not found.\n";
    request.failure_status = 1;
    Spawned program = spawn(request);
    if (program.pid < 0) return {};
    const std::string written = exchange(std::move(program.to), std::move(program.from), input);
    int status = 0;
    while (waitpid(program.pid, &status, 0) < 0 && errno == EINTR) {
    }
    RunOutput output;
    if (WIFSIGNALED(status)) return output;
    output.ended = true;
    output.dropped_chunks = collect_output(output.text, written);
    return output;
}

int collect_output(std::string &output, std::string_view written) {
    int dropped = 0;
    while (!written.empty()) {
        const std::string_view chunk = written.substr(0, chunk_size);
        written.remove_prefix(chunk.size());
        if (output.size() + chunk.size() <= OUTPUT_MAX - 1)
            output += chunk;
        else
            ++dropped;
    }
    return dropped;
}

}  // namespace brindle
