#pragma once
// Runs over a selection of trees, and what each action does with one tree.
#include <functional>
#include <vector>

#include "model/corpus.hpp"

namespace brindle {

class Proposer;

// What a run tells its program; each may be empty.
struct RunHooks {
    std::function<void()> dispatch = {};      // before each tree: the user may act, and stop the run
    std::function<void(int tree)> take = {};  // then the tree is taken: the window's current one
    std::function<void(int done, int all)> progress = {};  // after each tree
};

// One run. Several may exist: each is stopped for itself.
class Run {
  public:
    // The trees are 0-based, in the order of processing (propose/selection.hpp).
    Run(Corpus &corpus, std::vector<int> trees, RunHooks hooks = {});

    Corpus &corpus() const { return corpus_; }
    const std::vector<int> &trees() const { return trees_; }

    // Ends the run after the tree in hand.
    void stop() { stopped_ = true; }
    bool stopped() const { return stopped_; }

    // Works on one tree after another until there is none left or the run is stopped. Returns the number of
    // the tree taken last, -1 if there was none.
    int for_each_tree(const std::function<void(int tree)> &work);

  private:
    Corpus &corpus_;
    std::vector<int> trees_;
    RunHooks hooks_;
    bool stopped_ = false;
};

// The actions, each a whole run and one step of the history (edit/history.hpp).
int check_all(Run &run);
int uncheck_all(Run &run);
int propose_all(Run &run);     // unchecks each tree just before it is proposed
int undo_edits_all(Run &run);  // all edits of every node

// Unchecks the tree, then proposes it; a proposer that does many serves each with what it knows of the
// others. True: the proposal met a break (propose/propose.hpp).
bool propose_tree(Corpus &corpus, int tree);
bool propose_tree(Proposer &proposer, Corpus &corpus, int tree);
// undo_all on every node of the tree.
void undo_edits(Corpus &corpus, int tree);

}  // namespace brindle
