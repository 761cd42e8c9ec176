#pragma once
// "edit syntax": the bracketing of a subtree as text.
#include "windows/command_window.hpp"

namespace brindle {

class BracketingEdit;

// "edit syntax": the syntax editor for a selected subtree, the syntactic-tag editor for a single node.
void edit_syntax(TreeWindow &window, Node &node);

// The syntax editor. While it is open the tree takes no clicks.
class SyntaxEditor final : public CommandWindow {
  public:
    explicit SyntaxEditor(TreeWindow &owner);

    // Opens it on a subtree. Nothing but a notice happens while another window works on a node of it.
    void open_on(Node &top);
    // Takes its lock off the tree that it holds.
    void release_tree();

    void reject() override;  // "Cancel"

  private:
    bool subtree_is_free(Node &top);
    void take_text();
    void show_fault(const std::string &message);

    Node *top_ = nullptr;
    int tree_ = -1;     // the tree that it holds; -1: none
    std::string text_;  // what it showed when it was opened
    BracketingEdit *edit_;
};

}  // namespace brindle
