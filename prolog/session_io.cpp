// What comes from the child, and what becomes of it.
#include <fmt/format.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

#include "prolog/host.hpp"
#include "prolog/session.hpp"
#include "propose/node_run.hpp"

namespace brindle {

namespace {

constexpr std::size_t chunk_size = 8191;

std::size_t bytes_waiting(int fd) {
    int waiting = 0;
    return ioctl(fd, FIONREAD, &waiting) == 0 && waiting > 0 ? static_cast<std::size_t>(waiting) : 0;
}

// The child has closed its end and all has been read.
bool is_at_end(int fd) {
    pollfd state{fd, POLLIN, 0};
    return poll(&state, 1, 0) > 0 && !(state.revents & POLLIN);
}

}  // namespace

// ---------------------------------------------------------------- reading

void PrologSession::watch_output() {
    host_.watch_input(from_.get(), [this](int fd) { read_output(fd); });
}

// Handles exactly the bytes that are waiting.
void PrologSession::read_output(int fd) {
    if (reading_ || fd != from_.get()) return;
    const std::size_t waiting = bytes_waiting(fd);
    reading_ = true;
    host_.unwatch_input(fd);
    feed_waiting(fd, waiting);
    reading_ = false;
    if (fd == from_.get() && !is_at_end(fd)) watch_output();
    if (const auto ended = std::exchange(ended_, std::nullopt)) child_ended(ended->first, ended->second);
}

// Reads up to `waiting` bytes and feeds them in chunks. What may be the beginning of a marker goes to the
// next chunk as long as bytes are waiting. Stops when the descriptor is no longer the child's.
void PrologSession::feed_waiting(int fd, std::size_t waiting) {
    std::string chunk;
    while (waiting > 0 && fd == from_.get()) {
        const std::size_t kept = chunk.size();
        const std::size_t wanted = std::min(waiting, chunk_size - kept);
        chunk.resize(kept + wanted);
        const ssize_t got = read(fd, chunk.data() + kept, wanted);
        chunk.resize(kept + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        waiting = got > 0 ? waiting - static_cast<std::size_t>(got) : 0;
        const std::size_t tail = waiting > 0 ? marker_tail(chunk) : 0;
        const std::string next = chunk.substr(chunk.size() - tail);
        chunk.resize(chunk.size() - tail);
        if (!chunk.empty()) stream_.feed(chunk);
        chunk = next;
    }
}

// The last words of a child that has ended.
void PrologSession::read_rest() {
    while (const std::size_t waiting = from_.get() < 0 ? 0 : bytes_waiting(from_.get()))
        feed_waiting(from_.get(), waiting);
}

// ---------------------------------------------------------------- what the stream finds

void PrologSession::plain_text(std::string_view bytes) {
    host_.insert_output(bytes);
}

void PrologSession::message(std::string_view text) {
    if (const auto claim = std::exchange(claim_, std::nullopt)) {
        if (const auto refusal = give_answer(corpus_, claim->node, text))
            host_.prompt_at_node(claim->node, *refusal, claim->view);
    } else if (const auto run = run_; run && run->awaited()) {
        run->take_message(text);
    } else {
        host_.notice(text);
    }
}

void PrologSession::ready() {
    was_ready_ = true;
    set_state(State::idle);
    host_.set_query_active(true);
    host_.set_query_value("");
}

void PrologSession::go_on() {
    if (!waiting_query_.empty())
        send_query(std::exchange(waiting_query_, {}), nullptr);
    else if (const auto run = run_)
        run->go_on();
}

void PrologSession::no_end_message() {
    host_.notice(fmt::format("Error:\n\"{}\" encountered in prolog output,\nwithout matching \"{}\"",
                             begin_marker, end_marker));
    break_off_waiting();
}

}  // namespace brindle
