#pragma once
// The text of the syntax editor, with the keys that its "Help" names beside the platform's.
#include <QPlainTextEdit>

#include <functional>
#include <vector>

namespace brindle {

class BracketingEdit final : public QPlainTextEdit {
    Q_OBJECT
  public:
    BracketingEdit();

    // Puts the insertion point at the start of a line, counted from 1.
    void go_to_line(int line);

    // The help text: the keys of old, then those that came with the platform.
    static const char *help();

  protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

  private:
    struct Binding {
        QKeyCombination keys;
        std::function<void()> act;
    };
    const Binding *binding_of(const QEvent &key_event) const;  // null: none of ours
    void remove_to(QTextCursor::MoveOperation where);
    void note_change(int position, int removed, int added);
    void again();

    const std::vector<Binding> bindings_;
    QString last_inserted_;  // by the latest change
    int last_removed_ = 0;
};

}  // namespace brindle
