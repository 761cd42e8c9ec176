#pragma once
// A session with the Prolog system that runs beside the program as its child on two pipes: one query a line
// goes in, free text and messages come out, and the prompt says that the child is ready again. One query is
// outstanding at a time.
//
//     PrologSession session(host, corpus);
//     session.start(default_child(corpus.name));   once the output window exists
//     session.type_query(text);                    Return in the query field
//     session.filter(node, predicate, window);     a node's tag; the answer replaces it
//     session.drive(run);                          a query a node, one at each prompt
//
// All the rest is driven by the host's event loop.
#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "edit/change.hpp"
#include "prolog/spawn.hpp"
#include "prolog/stream.hpp"

namespace brindle {

class NodeRun;
struct Predicate;
struct PrologHost;
struct TreeView;

class PrologSession final : private StreamClient, private ChangeListener {
  public:
    enum class State {
        none,      // no child has been started yet, or the session was quit
        starting,  // the child has not shown its first prompt
        idle,      // the child is at its prompt
        busy,   // a query is out; a child that ends then and is started again is busy until its first prompt
        ended,  // there is no child; Return in the query field starts a new one
    };
    // The query field's label while the session is busy, and else.
    static constexpr std::string_view busy_label = "pending...";
    static constexpr std::string_view idle_label = "query:  ?-";

    // Host and corpus must outlive the session.
    PrologSession(PrologHost &host, Corpus &corpus);
    // Ends the child as `quit` does.
    ~PrologSession();
    PrologSession(const PrologSession &) = delete;
    PrologSession &operator=(const PrologSession &) = delete;

    // Starts the child with that command, which every later child gets, too. An empty command ends the
    // program. False: there are no pipes or no process; the reason is on standard error.
    bool start(std::vector<std::string> command);
    // Writes "halt.\n", closes the pipes and forgets the child, which has half a second before it is ended.
    void quit();

    State state() const { return state_; }
    bool is_busy() const { return state_ == State::busy; }
    std::string_view query_label() const { return is_busy() ? busy_label : idle_label; }

    // ---------------------------------------------------------------- queries

    // Return in the query field: writes its text as a query. Without a child a new one is started, which gets
    // the query when it is ready.
    void type_query(std::string_view text);
    // Writes a query, a whole line with its newline; then the session is busy. Never blocks: what the pipe
    // has no room for follows later. False: there is no child or it does not read; that is said in the
    // window's footer (the main window's for null), and nothing is pending.
    bool send_query(std::string_view line, TreeView *view);
    // Writes a line without a word to anybody ("true.\n" to a child that may be waiting for input). False as
    // above.
    bool write_line(std::string_view line);

    // ---------------------------------------------------------------- who gets the next message
    // Somebody's claim, else the run's node, else nobody: then the message is shown in a notice.

    // "filter": sends the node's tag; the next message becomes its tag, or is refused with a notice at the
    // node. False as with send_query. REQUIRES: the node has a tag; the session is not busy.
    bool filter(Node *node, const Predicate &predicate, TreeView *view);
    // The node of "filter" whose answer is awaited; null: none.
    const Node *claimed() const { return claim_ ? claim_->node : nullptr; }
    void drop_claim() { claim_.reset(); }
    // Drops the claim of a node that is `top` or below it, of that window.
    void drop_claim_below(const Node *top);
    void drop_claim_of(const TreeView *view);

    // Starts the run and goes on with it at each prompt until it has ended; a claim is dropped. The run ends
    // as broken off when the child ends or its answers lose their form. REQUIRES: the session is not busy.
    void drive(std::shared_ptr<NodeRun> run);
    // The run that is on; null: none.
    NodeRun *run() const;

  private:
    // A single "filter": who waits for the next message.
    struct Claim {
        Node *node;
        TreeView *view;
    };

    // Start and end of the child.
    bool start_child();
    void child_ended(pid_t pid, int status);
    void child_has_exited(int exit_status);
    void break_off_waiting();
    void wait_for_return();
    void close_pipes();
    void set_state(State state);

    // What goes to it.
    bool flush_unsent();
    void retry_later();
    void retry();

    // What comes from it.
    void watch_output();
    void read_output(int fd);
    void feed_waiting(int fd, std::size_t waiting);
    void read_rest();
    void deliver(std::string_view message);

    // StreamClient
    void plain_text(std::string_view bytes) override;
    void message(std::string_view text) override;
    void ready() override;
    void go_on() override;
    void no_end_message() override;

    // ChangeListener: a claim on a node that is replaced is dropped.
    void changed(const Corpus &corpus, const Change &change) override;

    PrologHost &host_;
    Corpus &corpus_;
    std::vector<std::string> command_;
    State state_ = State::none;

    pid_t pid_ = -1;  // -1: no child
    Fd to_;           // queries are written here
    Fd from_;         // answers are read here
    PrologStream stream_{*this};
    std::string unsent_;         // written as soon as the child reads
    std::string waiting_query_;  // typed while there was no child; sent at the first prompt
    bool retrying_ = false;      // a timer for `unsent_` is running
    bool reading_ = false;       // inside read_output: a notice may be up, no more input is taken
    std::optional<std::pair<pid_t, int>> ended_;  // the child ended meanwhile
    bool executed_ = false;                       // the program could be executed
    bool was_ready_ = false;                      // the child has shown a prompt
    bool restarted_ = false;                      // it replaces one that ended without ever showing one

    std::optional<Claim> claim_;
    std::shared_ptr<NodeRun> run_;
    std::shared_ptr<const bool> alive_ = std::make_shared<bool>(true);  // for timers that come too late
};

}  // namespace brindle
