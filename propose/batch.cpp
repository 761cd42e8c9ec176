#include "propose/batch.hpp"

#include "model/forest.hpp"
#include "model/frontend.hpp"
#include "model/request.hpp"
#include "model/traversal.hpp"
#include "propose/propose.hpp"
#include "stats/changes.hpp"

namespace brindle {
namespace {

int number_of_runs = 0;

}  // namespace

void begin_batch() {
    ++number_of_runs;
    BATCH = true;
    FILTER_NODE = EVAL_NODE = nullptr;
}

void end_batch() {
    BATCH = ROOT_ONLY = false;
    FILTER_NODE = EVAL_NODE = nullptr;
}

int batch_number() {
    return number_of_runs;
}

int run_batch(const BatchRun &run, const std::function<void(int)> &work) {
    int last = -1, done = 0;
    const int number = batch_number();
    const int all = static_cast<int>(run.trees.size());
    for (const int tree : run.trees) {
        frontend->notify_dispatch();
        if (!BATCH || batch_number() != number) break;
        last = tree;
        if (run.take) run.take(tree);
        work(tree);
        frontend->progress(run.view, ++done, all);
    }
    return last;
}

int check_all(const BatchRun &run) {
    return run_batch(run, [](int tree) { set_checked(tree, true); });
}

int uncheck_all(const BatchRun &run) {
    return run_batch(run, [](int tree) { set_checked(tree, false); });
}

int propose_all(const BatchRun &run) {
    return run_batch(run, propose_tree);
}

int undo_edits_all(const BatchRun &run) {
    return run_batch(run, undo_edits);
}

int expand_all(const BatchRun &run, const std::function<void(Node *root, TreeView *view)> &expand) {
    return run_batch(run, [&](int tree) {
        Node *root = forest[static_cast<std::size_t>(tree)].root;
        if (root->sem) expand(root, run.view);
    });
}

void propose_tree(int tree) {
    set_checked(tree, false);
    batch_propose(tree);
}

void undo_edits(int tree) {
    const TreeEntry &entry = forest[static_cast<std::size_t>(tree)];
    const TreeCheckedScope scope(entry);
    do_with(entry.root, undo_all);
}

}  // namespace brindle
