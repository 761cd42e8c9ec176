#pragma once
// The semantic tag editor: a field for a node's tag.
#include "windows/command_window.hpp"

namespace brindle {

class TagEditor final : public CommandWindow {
  public:
    explicit TagEditor(TreeWindow &owner);

    // Opens it on a node, with the tag that it has.
    void open(Node &node, QPoint place);
    Node *node() const override { return node_; }

  private:
    void take_tag();

    Node *node_ = nullptr;
    QLineEdit *field_;
};

}  // namespace brindle
