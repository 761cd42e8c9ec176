// What works through a selection of trees and then writes the whole corpus.
#include "app/batch/actions.hpp"
#include "app/batch/session.hpp"
#include "app/batch/shell.hpp"
#include "prolog/expansion.hpp"
#include "propose/report.hpp"

namespace brindle::batch {
namespace {

// Runs an action over the selection, with a progress bar. Returns `done`, or `failed` when something was told
// at a node.
template <class Work>
int run_over_selection(Session &session, Work &&work) {
    RunDisplay display(session.options.quiet);
    Run run(session.corpus, session.selected_trees(), display.hooks());
    work(run, display);
    return display.errors() > 0 ? failed : done;
}

// The same on a corpus that is written afterwards.
template <class Work>
int run_and_write(const Options &options, Work &&work) {
    Session session(options);
    const int status = run_over_selection(session, work);
    return session.put_out_corpus() == done ? status : failed;
}

}  // namespace

int run_check(const Options &options) {
    return run_and_write(options, [](Run &run, RunDisplay &) { check_all(run); });
}

int run_uncheck(const Options &options) {
    return run_and_write(options, [](Run &run, RunDisplay &) { uncheck_all(run); });
}

int run_propose(const Options &options) {
    return run_and_write(options, [](Run &run, RunDisplay &) { propose_all(run); });
}

int run_expand(const Options &options) {
    return run_and_write(options, [](Run &run, RunDisplay &display) {
        expand_all(run, [&](const ExpansionError &error) { display.tell_at(error.node, error.message); });
    });
}

int run_evaluate(const Options &options) {
    Session session(options);
    std::string report;
    run_over_selection(session, [&](Run &run, RunDisplay &) {
        int last = -1;
        report = propose_and_evaluate(run, session.selection_choice(), last);
    });
    if (put_out(options.report, report) != done) return failed;
    return options.output_given ? session.put_out_corpus() : done;
}

}  // namespace brindle::batch
