#pragma once
// The windows as the core sees them.
#include <chrono>

#include "model/frontend.hpp"

namespace brindle::tk {
class Frame;
}

namespace brindle {

// The front end that shows everything in windows. What is meant for no window, or for one that has been
// closed meanwhile, goes to the main frame. The caller owns the frame, which must outlive the front end.
class WindowFrontEnd : public FrontEnd {
  public:
    explicit WindowFrontEnd(tk::Frame &main_frame) : main_frame_(main_frame) {}
    void prompt(TreeView *view, std::string_view message, bool silent) override;
    void prompt_at_node(const Node *node, std::string_view message, TreeView *view, bool silent) override;
    void tree_GUI_repaint(TreeView *view) override;
    void show_foot(TreeView *view, std::string_view text) override;
    void show_nr(int tree, TreeView *view) override;
    void frame_busy(TreeView *view, bool busy) override;
    void all_frames_busy(TreeView *view, bool busy) override;
    void notify_dispatch() override;

  private:
    tk::Frame &frame_of(TreeView *view);

    tk::Frame &main_frame_;
    std::chrono::steady_clock::time_point next_dispatch_;
};

}  // namespace brindle
