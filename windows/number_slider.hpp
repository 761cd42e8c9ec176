#pragma once
// A number that is dragged on a scale or typed into the field before it.
#include <QWidget>

class QLabel;
class QSlider;
class QSpinBox;

namespace brindle {

class NumberSlider final : public QWidget {
    Q_OBJECT
  public:
    NumberSlider(const QString &label, int min, int max, int value, int scale_width = 130);

    int value() const;
    QRect field_box() const;  // in this widget
    // The labels are equally wide, so that the fields stand in a column.
    void align_with(NumberSlider &other);
    // None of these reports a change; the value stays within the range.
    void set_value(int value);
    void set_range(int min, int max);
    // The keyboard is the field's, whose number typing replaces.
    void take_focus();

  Q_SIGNALS:
    // The user has dragged to a value, or typed one and pressed Return.
    void changed(int value);
    // The user is done: Return has been pressed, or the button released on the scale.
    void left();

  private:
    void take(int value);

    QLabel *label_;
    QSpinBox *field_;
    QSlider *scale_;
};

}  // namespace brindle
