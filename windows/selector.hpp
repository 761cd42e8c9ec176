#pragma once
// The annotation selectors: the tags seen with a category, or with a word, in checked trees.
#include <QListWidget>

#include "windows/command_window.hpp"

namespace brindle {

struct Label;

class Selector final : public CommandWindow {
  public:
    enum class Kind { category, word };

    Selector(TreeWindow &owner, Kind kind);

    // Offers the tags of the node's category or word, most frequent first, and shows itself. False: there are
    // none, nothing is shown.
    bool open_on(Node &node);
    Node *node() const override { return node_; }

  protected:
    bool eventFilter(QObject *object, QEvent *event) override;

  private:
    void take_tag();
    void search_for_it();

    Kind kind_;
    Node *node_ = nullptr;
    std::vector<const Label *> tags_;  // of the rows; null: none
    QListWidget *list_;
    QPushButton *where_;
};

// "select": opens the selector for the part of the node that was clicked; a word that has nothing to offer
// gives way to its category. Says so when there is nothing to select.
void offer_tags(TreeWindow &window, Node &node);

}  // namespace brindle
