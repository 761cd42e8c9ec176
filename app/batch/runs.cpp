#include "app/batch/runs.hpp"

#include "app/batch/progress.hpp"
#include "app/batch/session.hpp"
#include "prolog/subtrees.hpp"
#include "propose/batch.hpp"
#include "propose/report.hpp"

namespace brindle::batch {
namespace {

// Runs an action over the selection, with a progress bar. Returns `done`, or `failed` when something was told
// at a node.
int run_over_selection(const Options &options, const std::function<void(const BatchRun &)> &action) {
    ShellFrontEnd shell(options.quiet);
    frontend = &shell;
    BatchRun run;
    run.trees = selected_trees(options);
    begin_batch();
    action(run);
    end_batch();
    frontend = silent_frontend();
    return shell.errors() > 0 ? failed : done;
}

// The same on a corpus that is written afterwards.
int run_and_write(const Options &options, const std::function<void(const BatchRun &)> &action) {
    load(options);
    const int status = run_over_selection(options, action);
    return put_out_corpus(options) == done ? status : failed;
}

}  // namespace

int run_check(const Options &options) {
    return run_and_write(options, check_all);
}

int run_uncheck(const Options &options) {
    return run_and_write(options, uncheck_all);
}

int run_propose(const Options &options) {
    return run_and_write(options, propose_all);
}

int run_expand(const Options &options) {
    return run_and_write(options, [](const BatchRun &run) {
        expand_all(run, [](Node *root, TreeView *view) { expand_into_tags(root, view); });
    });
}

int run_evaluate(const Options &options) {
    load(options);
    std::string report;
    run_over_selection(options, [&](const BatchRun &run) {
        int last = -1;
        report = propose_and_evaluate(run, selection_choice(options), last);
    });
    if (put_out(options.report, report) != done) return failed;
    return options.output_given ? put_out_corpus(options) : done;
}

}  // namespace brindle::batch
