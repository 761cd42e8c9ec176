#pragma once
// The batch box: what it chooses, and what begins and ends a run.
#include <chrono>
#include <string>

#include "gui/tree_window.hpp"
#include "propose/run.hpp"
#include "propose/selection.hpp"

namespace brindle {

// What the items of the window's batch box say.
SelectionChoice choice_of(const TreeWindow &tw);

// Prepares a run: the trees are chosen (tw.batch_selection), everything but "Abort" takes no input, and no
// answer to "filter" is awaited any more. Who begins the run then says so (gui/current_run.hpp).
void batch_init(TreeWindow &tw);

// Ends the run that goes on, and what batch_init has done, also a second time: everything takes input again.
void stop_batch(TreeWindow &tw);

// Says how far a run of the window is, no more often than a person reads.
class Progress {
  public:
    // text: what the footer says of the run; "": it stays as it is.
    Progress(TreeWindow &tw, std::string text) : tw_(tw), text_(std::move(text)) {}
    void step();  // one more tree is taken

  private:
    using Clock = std::chrono::steady_clock;

    TreeWindow &tw_;
    std::string text_;
    int taken_ = 0;
    Clock::time_point shown_ = Clock::now();
};

// Makes the tree the window's current one, without showing it.
void enter_tree(int tree, TreeWindow &tw);

// A run in one go: batch_init, the action with "n of m" behind the footer's text ("": the footer stays), the
// last tree shown, stop_batch. The action gets the run and returns the last tree (-1: none).
void run_in_one_go(TreeWindow &tw, std::string footer, const std::function<int(Run &)> &action);

}  // namespace brindle
