#pragma once
// A front end that writes down what the core shows.
#include <functional>
#include <string>
#include <vector>

#include "model/frontend.hpp"

namespace brindle::test {

// Installs itself as `frontend` for its lifetime and logs every call as one line: "prompt: text",
// "prompt at 2.1: text", "repaint", "foot: text", "show 3" (0-based), "busy", "idle", "all busy", "all idle",
// "dispatch", "progress 1/5".
class RecordingFrontEnd : public FrontEnd {
  public:
    RecordingFrontEnd();
    ~RecordingFrontEnd() override;

    void prompt(TreeView *, std::string_view message, bool silent) override;
    void prompt_at_node(const Node *node, std::string_view message, TreeView *, bool silent) override;
    void tree_GUI_repaint(TreeView *) override;
    void show_foot(TreeView *, std::string_view text) override;
    void show_nr(int tree, TreeView *) override;
    void frame_busy(TreeView *, bool busy) override;
    void all_frames_busy(TreeView *, bool busy) override;
    void notify_dispatch() override;
    void progress(TreeView *, int n, int m) override;

    std::vector<std::string> log;
    std::vector<std::string> messages;  // the notices' texts alone
    const Node *prompted_at = nullptr;  // of the latest notice at a node
    bool silent = false;                // of the latest notice
    std::function<void()> on_dispatch;  // what "the user does" between two trees of a run

  private:
    FrontEnd *before_;
};

}  // namespace brindle::test
