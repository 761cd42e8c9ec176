#pragma once
// "Export to LaTeX": asks for a file and writes a node's tree into it.
#include "windows/command_window.hpp"

namespace brindle {

class LatexRequestor final : public CommandWindow {
  public:
    explicit LatexRequestor(TreeWindow &owner);
    void open(Node &node);
    // It keeps the node: the menu may be opened on another one before it is answered.
    Node *node() const override { return node_; }

  private:
    void write();

    Node *node_ = nullptr;
    QLineEdit *field_;
};

}  // namespace brindle
