#pragma once
// The run that goes on in the workbench - a batch, a search, the writing of the information format - and what
// keeps the user's hands off the windows meanwhile. At most one run goes on.
#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace brindle {

class TreeWindow;

// A busy window is drawn but takes no input; Control-C in it interrupts. Its property "busy" says so, too.
void set_busy(QWidget &window, bool busy);
bool is_busy(const QWidget &window);

class CurrentRun final : public QObject {
  public:
    CurrentRun();

    // A run of the window begins; `stop` makes it end soon. Returns its number.
    int begin(TreeWindow &window, std::function<void()> stop);
    // Stops the run that goes on, if one does; then none does.
    void end();
    // Whether the run of that number goes on: neither Abort has ended it, which another run may have
    // followed, nor its own end.
    bool goes_on(int number) const { return window_ && number_ == number; }
    // The window of the run that goes on; null: none does.
    TreeWindow *window() const { return window_; }

    // Handles what the user has done meanwhile and draws what is due; called between two trees of a run.
    void dispatch();
    // Called whenever that has been done.
    std::function<void()> on_dispatched;

    // What Control-C does in a busy window.
    std::function<void()> on_interrupt;

  protected:
    bool eventFilter(QObject *object, QEvent *event) override;

  private:
    TreeWindow *window_ = nullptr;
    std::function<void()> stop_;
    int number_ = 0;
};

}  // namespace brindle
