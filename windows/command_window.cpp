#include "windows/command_window.hpp"

#include <algorithm>

#include "base/file_names.hpp"
#include "drawing/text.hpp"
#include "windows/number_slider.hpp"
#include "windows/tree_window.hpp"

namespace brindle {
namespace {

constexpr int title_height = 30;  // what a window manager adds

// Tab completes the name before it moves on.
class FileField final : public QLineEdit {
  protected:
    bool event(QEvent *event) override {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent *>(event)->keyCombination() == QKeyCombination(Qt::Key_Tab)) {
            const std::string typed = to_locale(text());
            const std::string complete = complete_file_name(typed);
            if (complete != typed) return setText(to_qstring(complete)), true;
        }
        return QLineEdit::event(event);
    }
};

}  // namespace

CommandWindow::CommandWindow(TreeWindow &owner, std::string_view title)
    : QDialog(&owner), owner_(owner), rows_(new QVBoxLayout(this)) {
    set_title(title);
    rows_->setContentsMargins(18, 18, 18, 18);
    rows_->setSizeConstraint(QLayout::SetMinimumSize);
}

Corpus &CommandWindow::corpus() const {
    return owner_.corpus();
}

void CommandWindow::set_title(std::string_view title) {
    setWindowTitle(to_qstring(title));
}

void CommandWindow::show_at(QPoint screen_place) {
    const QRect area = owner_.screen()->availableGeometry();
    if (layout()->sizeHint().height() + title_height > area.height()) {  // large letters on a small screen
        rows_->setSpacing(1);
        rows_->setContentsMargins(8, 6, 8, 6);
    }
    // Where even that does not fit, smaller letters do.
    while (layout()->sizeHint().height() + title_height > area.height() && font().pointSizeF() > 6) {
        QFont smaller = font();
        smaller.setPointSizeF(smaller.pointSizeF() - 0.5);
        setFont(smaller);
        layout()->activate();
    }
    adjustSize();
    move(std::clamp(screen_place.x(), area.left(), std::max(area.left(), area.right() - width())),
         std::clamp(screen_place.y(), area.top(),
                    std::max(area.top(), area.bottom() - height() - title_height)));
    show();
    raise();
    activateWindow();
}

void CommandWindow::show_below(const QWidget &item) {
    show_at(item.mapToGlobal(QPoint(0, item.height())));
}

void CommandWindow::show_right_of(const QWidget &item) {
    show_at(item.mapToGlobal(QPoint(item.width(), 0)));
}

// ---------------------------------------------------------------- items

void CommandWindow::new_row() {
    row_ = new QHBoxLayout;
    row_->setSpacing(8);
    rows_->addLayout(row_);
    row_->addStretch();
}

// Before the stretch at the row's end.
void CommandWindow::add_widget(QWidget *widget) {
    if (!row_) new_row();
    row_->insertWidget(row_->count() - 1, widget);
}

QLabel *CommandWindow::add_label(const QString &text, QWidget *buddy) {
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    label->setTextFormat(Qt::PlainText);
    add_widget(label);
    return label;
}

QLabel *CommandWindow::add_message(const QString &text, bool bold) {
    QLabel *label = add_label(text);
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QLineEdit *CommandWindow::add_field(QLineEdit *field, const QString &label, int shown_characters) {
    field_labels_ << add_label(label, field);
    field->setAccessibleName(label);
    field->setMinimumWidth(shown_characters * fontMetrics().averageCharWidth() + 16);
    add_widget(field);
    row_->setStretchFactor(field, 1);
    return field;
}

QLineEdit *CommandWindow::add_field(const QString &label, int shown_characters) {
    return add_field(new QLineEdit, label, shown_characters);
}

QLineEdit *CommandWindow::add_file_field(const QString &label, int shown_characters) {
    QLineEdit *field = add_field(new FileField, label, shown_characters);
    QPushButton *browse = add_button("Browse...", [this, field] {
        const QString name = QFileDialog::getSaveFileName(this, windowTitle(), field->text(), {}, nullptr,
                                                          QFileDialog::DontConfirmOverwrite);
        if (!name.isEmpty()) field->setText(name);
        field->setFocus();  // Return is "Ok" again
    });
    browse->setToolTip("Choose the file in a dialog");
    return field;
}

QComboBox *CommandWindow::add_choice(const QString &label, const QStringList &options) {
    auto *choice = new QComboBox;
    add_label(label, choice);
    choice->addItems(options);
    choice->setAccessibleName(label);
    add_widget(choice);
    return choice;
}

QCheckBox *CommandWindow::add_check_box(const QString &label, bool on) {
    auto *box = new QCheckBox(label);
    box->setChecked(on);
    add_widget(box);
    return box;
}

NumberSlider *CommandWindow::add_slider(const QString &label, int min, int max, int value, int scale_width) {
    auto *slider = new NumberSlider(label, min, max, value, scale_width);
    add_widget(slider);
    row_->setStretchFactor(slider, 1);
    return slider;
}

QPushButton *CommandWindow::add_button(const QString &label, std::function<void()> pressed) {
    auto *button = new QPushButton(label);
    button->setAutoDefault(false);
    if (pressed) connect(button, &QPushButton::clicked, this, std::move(pressed));
    add_widget(button);
    return button;
}

QPushButton *CommandWindow::add_cancel() {
    return add_button("Cancel", [this] { reject(); });
}

void CommandWindow::add_ok_and_cancel(std::function<void()> ok) {
    new_row();
    add_button("Ok", std::move(ok))->setDefault(true);
    add_cancel();
}

void CommandWindow::align_fields() {
    int widest = 0;
    for (const QLabel *label : field_labels_) widest = std::max(widest, label->sizeHint().width());
    for (QLabel *label : field_labels_) label->setMinimumWidth(widest);
    field_labels_.clear();
}

// Return on a button presses it, which the platform does only with default buttons.
void CommandWindow::keyPressEvent(QKeyEvent *event) {
    auto *button = qobject_cast<QPushButton *>(focusWidget());
    if (button && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) return button->click();
    QDialog::keyPressEvent(event);
}

// ---------------------------------------------------------------- one text

void Requestor::ask_for(QLineEdit *field, std::function<void(const std::string &text)> take) {
    field_ = field;
    add_ok_and_cancel([this, take = std::move(take)] {
        hide();
        take(to_locale(field_->text()));
    });
}

void Requestor::open_on(Node *node) {
    hide();
    node_ = node;
    field_->setFocus();
    show_at(window_in_hand().menu_place());
}

}  // namespace brindle
