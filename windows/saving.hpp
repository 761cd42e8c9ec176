#pragma once
// What writes files from a tree window: "Save", "Save as", "Export to LaTeX".
#include <functional>
#include <string>

#include "corpus/formats.hpp"
#include "windows/command_window.hpp"

namespace brindle {

// "Save".
void save(TreeWindow &window);
// "Save as": asks for a name and a format; the requestor stands below the item.
void save_as(TreeWindow &window, const QWidget &below);

// The requestor for a file's name and a format, for whoever writes a corpus or parts of it.
class FileRequestor final : public CommandWindow {
  public:
    explicit FileRequestor(TreeWindow &owner);

    // What "Ok" and Return call from now on. It is called with the requestor still shown.
    using Handler = std::function<void(const std::string &name, CorpusFormat format)>;
    void set_handler(Handler handler) { handler_ = std::move(handler); }

  private:
    Handler handler_;
    QLineEdit *name_;
    QComboBox *format_;
};

// "Export to LaTeX": a requestor, which the window owns, to be opened on a node whose tree is meant.
Requestor *new_latex_requestor(TreeWindow &owner);

// True if nothing of that name can be read, or if the user says that it may be overwritten. "No" shows the
// requestor again, "Cancel" leaves it closed.
bool may_write(const std::string &name, CommandWindow &requestor);

}  // namespace brindle
