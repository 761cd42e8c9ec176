#pragma once
// The progress bar of a long run, on standard error.
#include <chrono>

#include "model/frontend.hpp"

namespace brindle::batch {

// The front end of a shell program: a bar that shows only when standard error is a terminal and the work has
// lasted longer than half a second, and messages about nodes as "tree TREE, node PATH: message".
class ShellFrontEnd : public FrontEnd {
  public:
    explicit ShellFrontEnd(bool quiet);
    // How many messages have been shown at nodes.
    int errors() const { return errors_; }
    ~ShellFrontEnd() override;
    void progress(TreeView *view, int n, int m) override;
    // To standard error: standard output carries results only.
    void print(std::string_view line) override;
    void prompt_at_node(const Node *node, std::string_view message, TreeView *view, bool silent) override;

  private:
    void wipe();

    using Clock = std::chrono::steady_clock;
    bool shows_;
    bool drawn_ = false;
    int errors_ = 0;
    Clock::time_point started_ = Clock::now();
    Clock::time_point latest_ = started_;
};

}  // namespace brindle::batch
