// `filter`: every tag of the selection through Prolog, whose answers become the tags.
#include <memory>

#include "app/batch/actions.hpp"
#include "app/batch/session.hpp"
#include "app/batch/shell.hpp"
#include "prolog/child_command.hpp"
#include "prolog/expansion.hpp"
#include "prolog/poll_host.hpp"
#include "prolog/session.hpp"
#include "propose/node_run.hpp"

namespace brindle::batch {
namespace {

// Prolog's host without windows: its notices are messages. What it prints beside its messages is of no use
// here.
class FilterHost : public PollHost {
  public:
    void notice(std::string_view text) override { complain(text); }
    // The child has ended.
    void notice_at_query(std::string_view text) override {
        if (!lost_) complain(text);
        lost_ = true;
    }
    void set_lost() { lost_ = true; }

    bool lost() const { return lost_; }

  private:
    bool lost_ = false;  // the child or the run has ended before its time
};

// The stand-in of the workbench, which never prompts, is of no use here: no command then.
std::vector<std::string> prolog_command(const Options &options) {
    if (!options.prolog.empty()) return command_words(options.prolog);
    const std::vector<std::string> command = default_child(options.corpus);
    return command == no_prolog_child() ? std::vector<std::string>() : command;
}

// The whole run; false: Prolog was lost.
bool filter(Session &session, PrologSession &prolog, FilterHost &host, RunDisplay &display) {
    const std::vector<int> trees = session.selected_trees();
    Predicate predicate;
    predicate.set(session.options.predicate);
    int begun = 0;
    NodeRun::Hooks hooks;
    hooks.begin_tree = [&](int) { display.progress(++begun, static_cast<int>(trees.size())); };
    hooks.send_query = [&](Node *node) {
        const bool sent = prolog.send_query(predicate.step_line(node->sem()->view()), nullptr);
        if (!sent) host.set_lost();
        return sent;
    };
    hooks.refused = [&](Node *node, std::string_view text) { display.tell_at(node, text); };
    hooks.finish = [](int) {};
    hooks.broken_off = [&] { host.set_lost(); };
    const auto run = std::make_shared<NodeRun>(session.corpus, NodeRunKind::filter, trees,
                                               session.options.roots, std::move(hooks));
    prolog.drive(run);
    host.run_until([&] { return run->ended() || host.lost(); });
    run->stop();
    return !host.lost();
}

// The same, Prolog's start and end included.
bool filter_with(const std::vector<std::string> &command, Session &session, RunDisplay &display) {
    FilterHost host;
    PrologSession prolog(host, session.corpus);
    if (!prolog.start(command)) return false;
    host.run_until([&] { return prolog.state() != PrologSession::State::starting || host.lost(); });
    return prolog.state() == PrologSession::State::idle && filter(session, prolog, host, display);
}

}  // namespace

int run_filter(const Options &options) {
    Session session(options);
    const std::vector<std::string> command = prolog_command(options);
    if (command.empty()) {
        complain("there is no Prolog: install SWI-Prolog, or name a command with --prolog or BRINDLE_PROLOG");
        return failed;
    }
    RunDisplay display(options.quiet);
    if (!filter_with(command, session, display)) {
        complain("Prolog does not answer; nothing was written");
        return failed;
    }
    const int status = session.put_out_corpus();
    return display.errors() > 0 ? failed : status;
}

}  // namespace brindle::batch
