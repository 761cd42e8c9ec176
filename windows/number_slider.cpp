#include "windows/number_slider.hpp"

#include <algorithm>

namespace brindle {
namespace {

// Who clicks into it and types means the new number alone.
class NumberField final : public QSpinBox {
  protected:
    void focusInEvent(QFocusEvent *event) override {
        QSpinBox::focusInEvent(event);
        QTimer::singleShot(0, this, &QSpinBox::selectAll);  // the click is still to come
    }
};

}  // namespace

NumberSlider::NumberSlider(const QString &label, int min, int max, int value, int scale_width)
    : label_(new QLabel(label)), field_(new NumberField), scale_(new QSlider(Qt::Horizontal)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label_);
    row->addWidget(field_);
    row->addWidget(scale_, 1);
    label_->setTextFormat(Qt::PlainText);
    label_->setBuddy(field_);
    field_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field_->setKeyboardTracking(false);
    field_->setAccessibleName(label);
    scale_->setAccessibleName(label);
    scale_->setMinimumWidth(scale_width);
    scale_->setFocusPolicy(Qt::TabFocus);
    setFocusProxy(field_);
    set_range(min, max);
    set_value(value);
    connect(field_, &QSpinBox::valueChanged, this, &NumberSlider::take);
    connect(scale_, &QSlider::valueChanged, this, &NumberSlider::take);
    connect(field_->findChild<QLineEdit *>(), &QLineEdit::returnPressed, this, &NumberSlider::left);
    connect(scale_, &QSlider::sliderReleased, this, &NumberSlider::left);
}

void NumberSlider::take(int value) {
    set_value(value);
    Q_EMIT changed(value);
}

int NumberSlider::value() const {
    return field_->value();
}
QRect NumberSlider::field_box() const {
    return field_->geometry();
}

void NumberSlider::align_with(NumberSlider &other) {
    const int width = std::max(label_->sizeHint().width(), other.label_->sizeHint().width());
    for (QLabel *label : {label_, other.label_}) label->setMinimumWidth(width);
}

void NumberSlider::take_focus() {
    field_->setFocus();
    field_->selectAll();
}

void NumberSlider::set_value(int value) {
    const QSignalBlocker quiet_field(field_), quiet_scale(scale_);
    field_->setValue(value);
    scale_->setValue(value);
}

void NumberSlider::set_range(int min, int max) {
    const QSignalBlocker quiet_field(field_), quiet_scale(scale_);
    field_->setRange(min, max);
    scale_->setRange(min, max);
    scale_->setPageStep(std::max(1, (max - min) / 20));
}

}  // namespace brindle
