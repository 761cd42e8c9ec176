#pragma once
// The windows that belong to a tree window and hold items in rows: requestors, selectors, boxes. They are
// made hidden, and closing one hides it.
#include <QDialog>

#include <functional>
#include <string>
#include <string_view>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace brindle {

class Node;
class NumberSlider;
class TreeWindow;
class Corpus;

class CommandWindow : public QDialog {
    Q_OBJECT
  public:
    explicit CommandWindow(TreeWindow &owner, std::string_view title = {});

    // The node that it works on while it is shown; null: none. Such a node must not be replaced.
    virtual Node *node() const { return nullptr; }

    void set_title(std::string_view title);
    // Shows it with its upper left corner at a place on the screen, below or right of an item; on the screen
    // in any case.
    void show_at(QPoint screen);
    void show_below(const QWidget &item);
    void show_right_of(const QWidget &item);

    // The workbench's one corpus and the window that this belongs to.
    TreeWindow &window_in_hand() const { return owner_; }
    Corpus &corpus() const;

    // Items come one after another into the row; labels are shown as they are.
    void new_row();
    QLabel *add_message(const QString &text, bool bold = false);
    QLineEdit *add_field(const QString &label, int shown_characters);
    // A field for a file's name: Tab completes it, and a button opens the platform's file dialog.
    QLineEdit *add_file_field(const QString &label, int shown_characters);
    QComboBox *add_choice(const QString &label, const QStringList &options);
    QCheckBox *add_check_box(const QString &label, bool on);
    NumberSlider *add_slider(const QString &label, int min, int max, int value, int scale_width = 130);
    QPushButton *add_button(const QString &label, std::function<void()> pressed);
    void add_widget(QWidget *widget);
    // "Cancel" does what Escape and the window manager's button do: reject().
    QPushButton *add_cancel();
    // A new row of "Ok" and "Cancel"; "Ok" and Return in the field do the same.
    void add_ok_and_cancel(std::function<void()> ok);
    // Makes the labels of the fields added so far equally wide, so that the fields stand in a column.
    void align_fields();

  protected:
    void keyPressEvent(QKeyEvent *event) override;

  private:
    QLabel *add_label(const QString &text, QWidget *buddy = nullptr);
    QLineEdit *add_field(QLineEdit *field, const QString &label, int shown_characters);

    TreeWindow &owner_;
    QVBoxLayout *rows_;
    QHBoxLayout *row_ = nullptr;
    QList<QLabel *> field_labels_;
};

// A command window that asks for one text, about a node or about none.
class Requestor final : public CommandWindow {
  public:
    using CommandWindow::CommandWindow;

    // Ends its rows with "Ok" and "Cancel": "Ok" hides it and hands over what the field says.
    void ask_for(QLineEdit *field, std::function<void(const std::string &text)> take);
    QLineEdit &field() { return *field_; }
    // Opens it where the last menu was.
    void open_on(Node *node);
    Node *node() const override { return node_; }

  private:
    QLineEdit *field_ = nullptr;
    Node *node_ = nullptr;
};

}  // namespace brindle
