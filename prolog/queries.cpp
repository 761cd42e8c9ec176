// What goes to the child.
#include <fmt/format.h>

#include <cerrno>
#include <cstring>

#include "model/frontend.hpp"
#include "prolog/connection.hpp"
#include "prolog/host.hpp"
#include "prolog/pipe.hpp"
#include "prolog/spawn.hpp"

namespace brindle {

namespace {

constexpr double retry_seconds = 0.02;

// Writes what the pipe has room for. False: nobody will ever read it (errno tells).
bool flush_unsent() {
    std::string &unsent = connection.unsent;
    while (!unsent.empty()) {
        const ssize_t written = write_to_pipe(prolog_io[1], unsent);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno == EAGAIN;
        unsent.erase(0, static_cast<std::size_t>(written));
    }
    return true;
}

void retry_later();

void retry() {
    connection.retrying = false;
    if (prolog_io[1] < 0 || connection.unsent.empty()) return;
    if (flush_unsent()) {
        retry_later();
        return;
    }
    connection.unsent.clear();
    connection.host->show_query_foot(fmt::format("Cannot write to Prolog: {}", std::strerror(errno)));
}

void retry_later() {
    if (connection.unsent.empty() || connection.retrying) return;
    connection.retrying = true;
    connection.host->after(retry_seconds, retry);
}

void tell_unwritten(std::string_view reason, TreeView *view) {
    if (view) {
        frontend->show_foot(view, reason);
    } else if (connection.host) {
        connection.host->show_query_foot(reason);
    }
}

}  // namespace

void set_query_label(std::string_view label) {
    connection.label = label;
    connection.host->set_query_label(label);
}

void wait_for_return() {
    set_query_label(idle_label);
    connection.host->set_query_active(true);
}

std::string_view query_label() {
    return connection.label;
}

void prologinit() {
    write_line(startup_line);
}

bool write_line(std::string_view line) {
    if (prolog_io[1] < 0) return false;
    connection.unsent += line;
    if (!flush_unsent()) {
        const int reason = errno;
        connection.unsent.clear();
        errno = reason;
        return false;
    }
    retry_later();
    return true;
}

bool send_query(std::string_view line, TreeView *view) {
    if (prolog_io[1] < 0) {
        tell_unwritten("No Prolog is running: Return in the query field starts one", view);
        return false;
    }
    if (!write_line(line)) {
        tell_unwritten(fmt::format("Cannot write to Prolog: {}", std::strerror(errno)), view);
        return false;
    }
    set_query_label(busy_label);
    return true;
}

void commando(std::string_view text) {
    const std::string line = std::string(text) + "\n";
    if (connection.pid >= 0 || !connection.host || child.empty()) {
        send_query(line, nullptr);
        return;
    }
    connection.waiting_query = line;
    connection.host->set_query_active(false);
    if (!forkandpipe(child, *connection.host)) {
        connection.waiting_query.clear();
        wait_for_return();
    }
}

}  // namespace brindle
