// The child's start and end, what goes to it, and who waits for its answer.
#include "prolog/session.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include "base/error.hpp"
#include "prolog/expansion.hpp"
#include "prolog/host.hpp"
#include "propose/node_run.hpp"

namespace brindle {

namespace {

constexpr std::string_view startup_line = "interactive(no),system(my_checker).\n";
constexpr std::chrono::milliseconds patience(500);  // with a child that is to end
constexpr double retry_seconds = 0.02;

// Waits for the child to end by itself, no longer than the time given.
bool has_ended_within(pid_t pid, std::chrono::milliseconds time) {
    const auto deadline = std::chrono::steady_clock::now() + time;
    while (waitpid(pid, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

}  // namespace

PrologSession::PrologSession(PrologHost &host, Corpus &corpus) : host_(host), corpus_(corpus) {
    corpus_.listeners.push_back(this);
}

PrologSession::~PrologSession() {
    quit();
    std::erase(corpus_.listeners, static_cast<ChangeListener *>(this));
}

// ---------------------------------------------------------------- starting and ending

bool PrologSession::start(std::vector<std::string> command) {
    command_ = std::move(command);
    set_state(State::starting);
    host_.set_query_active(false);
    return start_child();
}

bool PrologSession::start_child() {
    if (command_.empty() || command_.front().empty()) error("pipe called with no argument");
    SpawnRequest request;
    request.arguments = command_;
    request.not_found = ": command not found.\n";
    request.not_found_fd = STDOUT_FILENO;
    Spawned started = spawn(request);
    if (started.pid < 0) return false;
    stream_.reset();
    pid_ = started.pid;
    executed_ = started.executed;
    was_ready_ = restarted_ = false;
    to_ = std::move(started.to);
    from_ = std::move(started.from);
    for (const int fd : {to_.get(), from_.get()}) fcntl(fd, F_SETFL, O_NONBLOCK);
    watch_output();
    host_.watch_child(pid_, [this](pid_t pid, int status) { child_ended(pid, status); });
    write_line(startup_line);
    return true;
}

void PrologSession::quit() {
    write_line("halt.\n");
    const pid_t pid = std::exchange(pid_, -1);
    if (pid >= 0) host_.unwatch_child(pid);
    close_pipes();
    state_ = State::none;
    if (pid < 0 || has_ended_within(pid, patience)) return;
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

// Handles the end of the child: restarts it with two notices, or makes the query field ready to start a new
// one when it was ended by a signal or could not be started at all.
void PrologSession::child_ended(pid_t pid, int status) {
    if (pid != pid_) return;
    if (reading_) {
        ended_.emplace(pid, status);
        return;
    }
    reading_ = true;
    read_rest();
    reading_ = false;
    if (pid != pid_) return;
    pid_ = -1;
    close_pipes();
    waiting_query_.clear();
    break_off_waiting();
    if (WIFSIGNALED(status)) {
        host_.show_foot(nullptr, fmt::format("Prolog was ended by signal {}", WTERMSIG(status)));
        wait_for_return();
    } else {
        child_has_exited(WEXITSTATUS(status));
    }
}

void PrologSession::child_has_exited(int exit_status) {
    const bool hopeless = !executed_ || (!was_ready_ && restarted_);
    const bool never_ready = !was_ready_;
    host_.set_query_active(false);
    host_.notice_at_query(fmt::format(
        "\nProlog terminated with status {}\n\nI just wish you wouldn't do that...", exit_status));
    if (pid_ >= 0 || state_ == State::none) return;  // somebody has started one meanwhile, or quit
    if (hopeless || !start_child()) {
        wait_for_return();
        return;
    }
    if (!is_busy()) state_ = State::starting;
    restarted_ = never_ready;
    host_.notice_at_query(
        "You just exited prolog. \n\x1b\n\t\t It has now been restarted,\n\x1b\n\t\t but the contents of "
        "its database are,\n\x1b\n\t\t of course, lost.");
}

// Who waits for the child's answer would wait for ever.
void PrologSession::break_off_waiting() {
    claim_.reset();
    if (const auto run = std::exchange(run_, nullptr)) run->break_off();
}

// Makes the query field usable without a child: Return in it starts a new one.
void PrologSession::wait_for_return() {
    set_state(State::ended);
    host_.set_query_active(true);
}

void PrologSession::close_pipes() {
    if (from_.get() >= 0) host_.unwatch_input(from_.get());
    to_.reset();
    from_.reset();
    unsent_.clear();
}

void PrologSession::set_state(State state) {
    state_ = state;
    host_.set_query_label(query_label());
}

// ---------------------------------------------------------------- queries

void PrologSession::type_query(std::string_view text) {
    const std::string line = std::string(text) + "\n";
    if (pid_ >= 0 || command_.empty()) {
        send_query(line, nullptr);
        return;
    }
    waiting_query_ = line;
    host_.set_query_active(false);
    if (start_child()) {
        state_ = State::starting;
    } else {
        waiting_query_.clear();
        wait_for_return();
    }
}

bool PrologSession::send_query(std::string_view line, TreeView *view) {
    if (to_.get() < 0) {
        host_.show_foot(view, "No Prolog is running: Return in the query field starts one");
        return false;
    }
    if (!write_line(line)) {
        host_.show_foot(view, fmt::format("Cannot write to Prolog: {}", std::strerror(errno)));
        return false;
    }
    set_state(State::busy);
    return true;
}

bool PrologSession::write_line(std::string_view line) {
    if (to_.get() < 0) return false;
    unsent_ += line;
    if (!flush_unsent()) {
        const int reason = errno;
        unsent_.clear();
        errno = reason;
        return false;
    }
    retry_later();
    return true;
}

// Writes what the pipe has room for. False: nobody will ever read it (errno tells).
bool PrologSession::flush_unsent() {
    while (!unsent_.empty()) {
        const ssize_t written = write_to_pipe(to_.get(), unsent_);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno == EAGAIN;
        unsent_.erase(0, static_cast<std::size_t>(written));
    }
    return true;
}

void PrologSession::retry_later() {
    if (unsent_.empty() || retrying_) return;
    retrying_ = true;
    host_.after(retry_seconds, [this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) retry();
    });
}

void PrologSession::retry() {
    retrying_ = false;
    if (to_.get() < 0 || unsent_.empty()) return;
    if (flush_unsent()) {
        retry_later();
        return;
    }
    unsent_.clear();
    host_.show_foot(nullptr, fmt::format("Cannot write to Prolog: {}", std::strerror(errno)));
}

// ---------------------------------------------------------------- who waits

bool PrologSession::filter(Node *node, const Predicate &predicate, TreeView *view) {
    if (!send_query(predicate.filter_line(node->sem()->view()), view)) return false;
    claim_ = {node, view};
    return true;
}

void PrologSession::drop_claim_below(const Node *top) {
    if (claim_ && is_below(top, claim_->node)) claim_.reset();
}

void PrologSession::drop_claim_of(const TreeView *view) {
    if (claim_ && claim_->view == view) claim_.reset();
}

void PrologSession::drive(std::shared_ptr<NodeRun> run) {
    claim_.reset();
    run_ = run;
    run->start();
}

NodeRun *PrologSession::run() const {
    return run_ && !run_->ended() ? run_.get() : nullptr;
}

void PrologSession::changed(const Corpus &, const Change &change) {
    if (change.kind != Change::Kind::subtree) return;
    drop_claim_below(change.replaced);
    if (run_) run_->subtree_replaced(change.replaced);
}

}  // namespace brindle
