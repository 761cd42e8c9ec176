#include "prolog/pipe.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <optional>
#include <thread>
#include <utility>

#include "model/error.hpp"
#include "model/request.hpp"
#include "prolog/connection.hpp"
#include "prolog/host.hpp"
#include "prolog/messages.hpp"
#include "prolog/spawn.hpp"

namespace brindle {

int prolog_io[4] = {-1, -1, -1, -1};
std::vector<std::string> child;
Connection connection;

namespace {

constexpr std::size_t chunk_size = 8191;

void close_end(int &fd) {
    if (fd >= 0) close(fd);
    fd = -1;
}

// ---------------------------------------------------------------- starting and ending

void watch_output() {
    connection.host->watch_input(prolog_io[2], [](int fd) { read_it(fd); });
}

void close_pipes() {
    if (prolog_io[2] >= 0) connection.host->unwatch_input(prolog_io[2]);
    close_end(prolog_io[1]);
    close_end(prolog_io[2]);
    connection.unsent.clear();
}

// A run that waits for the child's answer would wait for ever.
void end_waiting_batch() {
    if (BATCH && (FILTER_NODE || EVAL_NODE)) connection.host->stop_batch(BATCH_TREE_GUI);
    FILTER_NODE = nullptr;
    EVAL_NODE = nullptr;
}

void child_has_exited(int exit_status) {
    PrologHost &host = *connection.host;
    const bool hopeless = !connection.executed || (!connection.was_ready && connection.restarted);
    const bool never_ready = !connection.was_ready;
    host.set_query_active(false);
    host.notice_at_query(fmt::format(
        "\nProlog terminated with status {}\n\nI just wish you wouldn't do that...", exit_status));
    if (connection.pid >= 0 || connection.host != &host)
        return;  // somebody has started or ended one meanwhile
    if (hopeless || !forkandpipe(child, host)) {
        wait_for_return();
        return;
    }
    connection.restarted = never_ready;
    host.notice_at_query(
        "You just exited prolog. \n\x1b\n\t\t It has now been restarted,\n\x1b\n\t\t but the contents of "
        "its database are,\n\x1b\n\t\t of course, lost.");
}

// ---------------------------------------------------------------- reading

std::size_t bytes_waiting(int fd) {
    int waiting = 0;
    return ioctl(fd, FIONREAD, &waiting) == 0 && waiting > 0 ? static_cast<std::size_t>(waiting) : 0;
}

// The child has closed its end and all has been read.
bool is_at_end(int fd) {
    pollfd state{fd, POLLIN, 0};
    return poll(&state, 1, 0) > 0 && !(state.revents & POLLIN);
}

// Reads up to `waiting` bytes and feeds them in chunks. What may be the beginning of a marker goes to the
// next chunk as long as bytes are waiting. Stops when the descriptor is no longer the child's.
void feed_waiting(int fd, std::size_t waiting) {
    std::string chunk;
    while (waiting > 0 && fd == prolog_io[2]) {
        const std::size_t kept = chunk.size();
        const std::size_t wanted = std::min(waiting, chunk_size - kept);
        chunk.resize(kept + wanted);
        const ssize_t got = read(fd, chunk.data() + kept, wanted);
        chunk.resize(kept + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        waiting = got > 0 ? waiting - static_cast<std::size_t>(got) : 0;
        const std::size_t tail = waiting > 0 ? marker_tail(chunk) : 0;
        const std::string next = chunk.substr(chunk.size() - tail);
        chunk.resize(chunk.size() - tail);
        if (!chunk.empty()) connection.stream.feed(chunk);
        chunk = next;
    }
}

// The last words of a child that has ended.
void read_rest() {
    while (const std::size_t waiting = prolog_io[2] < 0 ? 0 : bytes_waiting(prolog_io[2])) {
        feed_waiting(prolog_io[2], waiting);
    }
}

}  // namespace

void ConnectionClient::text_window_insert(std::string_view bytes) {
    connection.host->insert_output(bytes);
}

void ConnectionClient::show_message(std::string_view message) {
    brindle::show_message(*connection.host, message);
}

void ConnectionClient::ready() {
    connection.was_ready = true;
    set_query_label(idle_label);
    connection.host->set_query_active(true);
    connection.host->set_query_value("");
}

void ConnectionClient::go_on() {
    if (!connection.waiting_query.empty()) {
        send_query(std::exchange(connection.waiting_query, {}), nullptr);
    } else if (BATCH && FILTER_NODE) {
        connection.host->go_on_filtering();
    } else if (BATCH && EVAL_NODE) {
        connection.host->go_on_evaluating();
    }
}

void ConnectionClient::no_end_message() {
    brindle::no_end_message(*connection.host);
}

bool start_prolog(PrologHost &host, std::vector<std::string> command) {
    child = std::move(command);
    connection.host = &host;
    set_query_label(idle_label);
    host.set_query_active(false);
    return forkandpipe(child, host);
}

bool forkandpipe(const std::vector<std::string> &arguments, PrologHost &host) {
    if (arguments.empty() || arguments.front().empty()) error("pipe called with no argument");
    connection.host = &host;
    SpawnRequest request;
    request.arguments = arguments;
    request.not_found = ": command not found.\n";
    request.not_found_fd = STDOUT_FILENO;
    Spawned started = spawn(request);
    if (started.pid < 0) return false;
    connection.stream.reset();
    connection.pid = started.pid;
    connection.executed = started.executed;
    connection.was_ready = connection.restarted = false;
    prolog_io[1] = started.to.release();
    prolog_io[2] = started.from.release();
    for (const int fd : {prolog_io[1], prolog_io[2]}) fcntl(fd, F_SETFL, O_NONBLOCK);
    watch_output();
    host.watch_child(started.pid, sigchldcatcher);
    prologinit();
    return true;
}

int read_it(int fd) {
    if (connection.reading || fd != prolog_io[2]) return 0;
    PrologHost &host = *connection.host;
    const std::size_t waiting = bytes_waiting(fd);
    connection.reading = true;
    host.unwatch_input(fd);
    feed_waiting(fd, waiting);
    connection.reading = false;
    if (fd == prolog_io[2] && !is_at_end(fd)) watch_output();
    if (auto ended = std::exchange(connection.ended, std::nullopt))
        sigchldcatcher(ended->first, ended->second);
    return 0;
}

void sigchldcatcher(pid_t pid, int status) {
    if (pid != connection.pid) return;
    if (connection.reading) {
        connection.ended.emplace(pid, status);
        return;
    }
    connection.reading = true;
    read_rest();
    connection.reading = false;
    if (pid != connection.pid) return;
    connection.pid = -1;
    close_pipes();
    connection.waiting_query.clear();
    end_waiting_batch();
    if (WIFSIGNALED(status)) {
        connection.host->show_query_foot(fmt::format("Prolog was ended by signal {}", WTERMSIG(status)));
        wait_for_return();
    } else {
        child_has_exited(WEXITSTATUS(status));
    }
}

namespace {

// Waits for the child to end by itself, no longer than the time given.
bool has_ended_within(pid_t pid, std::chrono::milliseconds time) {
    const auto deadline = std::chrono::steady_clock::now() + time;
    while (waitpid(pid, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

void forget_child(std::chrono::milliseconds patience) {
    const pid_t pid = std::exchange(connection.pid, -1);
    if (connection.host && pid >= 0) connection.host->unwatch_child(pid);
    if (connection.host) close_pipes();
    if (pid < 0 || has_ended_within(pid, patience)) return;
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

}  // namespace

void quit_prolog() {
    write_line("halt.\n");
    forget_child(std::chrono::milliseconds(500));
}

void reset_prolog() {
    forget_child(std::chrono::milliseconds(0));
    child.clear();
    connection.host = nullptr;
    connection.stream.reset();
    connection.unsent.clear();
    connection.waiting_query.clear();
    connection.label = idle_label;
    connection.reading = false;
    connection.ended.reset();
}

}  // namespace brindle
