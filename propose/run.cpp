#include "propose/run.hpp"

#include <utility>

#include <fmt/format.h>

#include "edit/change.hpp"
#include "edit/history.hpp"
#include "model/traversal.hpp"
#include "propose/propose.hpp"

namespace brindle {

Run::Run(Corpus &corpus, std::vector<int> trees, RunHooks hooks)
    : corpus_(corpus), trees_(std::move(trees)), hooks_(std::move(hooks)) {}

int Run::for_each_tree(const std::function<void(int tree)> &work) {
    int last = -1, done = 0;
    const int all = static_cast<int>(trees_.size());
    for (const int tree : trees_) {
        if (hooks_.dispatch) hooks_.dispatch();
        if (stopped_) break;
        last = tree;
        if (hooks_.take) hooks_.take(tree);
        work(tree);
        if (hooks_.progress) hooks_.progress(++done, all);
    }
    return last;
}

int check_all(Run &run) {
    const HistoryStep step(run.corpus(), "Check");
    return run.for_each_tree([&](int tree) { set_checked(run.corpus(), tree, true); });
}

int uncheck_all(Run &run) {
    const HistoryStep step(run.corpus(), "Uncheck");
    return run.for_each_tree([&](int tree) { set_checked(run.corpus(), tree, false); });
}

int propose_all(Run &run) {
    const HistoryStep step(run.corpus(), "Propose");
    Proposer proposer(run.corpus());
    return run.for_each_tree([&](int tree) { propose_tree(proposer, run.corpus(), tree); });
}

int undo_edits_all(Run &run) {
    const HistoryStep step(run.corpus(), "Undo edits");
    return run.for_each_tree([&](int tree) { undo_edits(run.corpus(), tree); });
}

bool propose_tree(Proposer &proposer, Corpus &corpus, int tree) {
    const HistoryStep step(corpus, fmt::format("Propose, tree {}", tree + 1));
    set_checked(corpus, tree, false);
    return proposer.propose(tree);
}

bool propose_tree(Corpus &corpus, int tree) {
    Proposer proposer(corpus);
    return propose_tree(proposer, corpus, tree);
}

void undo_edits(Corpus &corpus, int tree) {
    const HistoryStep step(corpus, fmt::format("Undo edits, tree {}", tree + 1));
    do_with(corpus.tree(tree).root, [&](Node *node) { undo_all(corpus, node); });
}

}  // namespace brindle
