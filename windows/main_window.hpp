#pragma once
// The main window: "Quit", the Prolog query field, "Edit", the output window.
#include <QMainWindow>

#include <string_view>

class QLabel;
class QLineEdit;
class QPushButton;

namespace brindle {

class OutputWindow;
class Workbench;

class MainWindow final : public QMainWindow {
    Q_OBJECT
  public:
    explicit MainWindow(Workbench &workbench);

    QLineEdit &query() { return *query_; }
    OutputWindow &output() { return *output_; }
    void set_query_label(std::string_view label);
    // "Edit" and the title show the corpus' name.
    void show_corpus_name();

  protected:
    void closeEvent(QCloseEvent *event) override;

  private:
    void show_edit_label();

    Workbench &workbench_;
    QLabel *query_label_;
    QLineEdit *query_;
    QPushButton *edit_;
    OutputWindow *output_;
};

// Shows a footer: in the status line, and in the window's property "footer".
void set_footer(QMainWindow &window, std::string_view text);

}  // namespace brindle
