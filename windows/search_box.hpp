#pragma once
// "Search & Replace".
#include "display/search_command.hpp"
#include "windows/command_window.hpp"

namespace brindle {

class SearchBox final : public CommandWindow {
  public:
    explicit SearchBox(TreeWindow &owner);

    // Shows it below the item, with the fields filled.
    void open_for(std::string_view syntactic, std::string_view lexical, std::string_view semantic,
                  const QWidget &below);
    // Steps aside when it hides a place on the screen: to whichever side has room.
    void uncover(QPoint place);

    // What its fields say when a button is pressed.
    SearchCommand command(SearchAction action) const;

  private:
    QLineEdit *syntactic_, *lexical_, *semantic_, *with_;
    QComboBox *replace_;
    QCheckBox *complete_labels_, *prompt_at_replace_, *start_here_;
};

// One press of an action button, from its first tree to its end (search_command.cpp).
void search(TreeWindow &window, SearchAction action);

}  // namespace brindle
