#include "app/batch/filter.hpp"

#include <optional>

#include "app/batch/progress.hpp"
#include "app/batch/session.hpp"
#include "model/forest.hpp"
#include "model/request.hpp"
#include "prolog/child_command.hpp"
#include "prolog/pipe.hpp"
#include "prolog/poll_host.hpp"
#include "prolog/subtrees.hpp"
#include "propose/batch.hpp"
#include "propose/node_run.hpp"

namespace brindle::batch {
namespace {

// Prolog's host without windows: its prompt drives the run, its notices are messages. What it prints beside
// its messages is of no use here.
class FilterHost : public PollHost {
  public:
    void set_query_active(bool active) override { ready_ = ready_ || active; }
    void notice(std::string_view text) override { complain(text); }
    // The child has ended.
    void notice_at_query(std::string_view text) override {
        if (!lost_) complain(text);
        lost_ = true;
    }
    void go_on_filtering() override { run->go_on(); }
    void stop_batch(TreeView *) override { lost_ = true; }

    bool ready() const { return ready_; }
    bool lost() const { return lost_; }

    std::optional<NodeRun> run;

  private:
    bool ready_ = false;  // the first prompt has come
    bool lost_ = false;   // the child or the run has ended before its time
};

// The stand-in of the workbench, which never prompts, is of no use here: no command then.
std::vector<std::string> prolog_command(const Options &options) {
    if (!options.prolog.empty()) return command_words(options.prolog);
    const std::vector<std::string> command = default_child(CORPUS);
    return command == no_prolog_child() ? std::vector<std::string>() : command;
}

// The whole run; false: Prolog was lost.
bool filter(FilterHost &host, const Options &options, TreeView &view, ShellFrontEnd &shell) {
    const std::vector<int> trees = selected_trees(options);
    int begun = 0;
    NodeRun::Hooks hooks;
    hooks.begin_tree = [&](int) { shell.progress(&view, ++begun, static_cast<int>(trees.size())); };
    hooks.finish = [](int) {};
    hooks.send_query = [&](Node *node) { return send_query(filter_line(view, node->sem->view()), &view); };
    begin_batch();
    ROOT_ONLY = options.roots;
    host.run.emplace(NodeRunKind::filter, trees, &view, hooks);
    host.run->start();
    host.run_until([&] { return host.run->ended() || host.lost(); });
    end_batch();
    return !host.lost();
}

}  // namespace

int run_filter(const Options &options) {
    load(options);
    const std::vector<std::string> command = prolog_command(options);
    if (command.empty()) {
        complain("there is no Prolog: install SWI-Prolog, or name a command with --prolog or BRINDLE_PROLOG");
        return failed;
    }
    ShellFrontEnd shell(options.quiet);
    frontend = &shell;
    TreeView view;
    view.predicate = options.predicate;
    view.predicate_is_null = options.predicate.empty();
    FilterHost host;
    bool answered = start_prolog(host, command);
    if (answered) host.run_until([&] { return host.ready() || host.lost() || prolog_io[1] < 0; });
    answered = answered && host.ready() && filter(host, options, view, shell);
    quit_prolog();
    frontend = silent_frontend();
    if (!answered) {
        complain("Prolog does not answer; nothing was written");
        return failed;
    }
    const int status = put_out_corpus(options);
    return shell.errors() > 0 ? failed : status;
}

}  // namespace brindle::batch
