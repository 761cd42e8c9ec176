#include "windows/notice.hpp"

#include <algorithm>

#include "drawing/text.hpp"
#include "windows/output_window.hpp"

namespace brindle {
namespace {

enum class Side { none, below, above, right, left };  // where the notice stands from what it points at

constexpr int arrow_size = 10;
constexpr int gap_down = 36 - arrow_size;  // to the place pointed at, which may have lines of text around it
constexpr int gap_across = 60 - arrow_size;
constexpr int widest_line = 620;

// Under Wayland windows stand where the compositor wants them: notices are ordinary windows there.
bool can_be_placed() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

class Notice final : public QDialog {
  public:
    Notice(QWidget *owner, const NoticeSpec &spec, std::optional<QPoint> pointed_at);
    int answer() const { return answer_.value_or(escape_value()); }

  protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

  private:
    void add_message(QVBoxLayout &column);
    void add_buttons(QVBoxLayout &column);
    void take(int value);
    int escape_value() const;
    void place(const QWidget *owner, std::optional<QPoint> pointed_at);
    QPainterPath outline() const;

    const NoticeSpec &spec_;
    QPushButton *default_ = nullptr;
    std::optional<int> answer_;
    Side side_ = Side::none;
    bool points_;
    QPoint tip_;  // of the arrow, in the notice
};

Notice::Notice(QWidget *owner, const NoticeSpec &spec, std::optional<QPoint> pointed_at)
    : QDialog(owner), spec_(spec), points_(pointed_at && can_be_placed()) {
    setObjectName("notice");
    setWindowTitle("Notice");
    if (points_) setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setWindowModality(Qt::ApplicationModal);
    auto *column = new QVBoxLayout(this);
    const int margin = points_ ? 16 + arrow_size : 16;
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(14);
    add_message(*column);
    add_buttons(*column);
    place(owner, points_ ? pointed_at : std::nullopt);
}

// A message that the screen has no room for scrolls.
void Notice::add_message(QVBoxLayout &column) {
    const QString text = to_qstring(clean_message(spec_.message));
    const QFontMetrics metrics(font());
    const int room = screen()->availableSize().height() * 2 / 3;
    const int longest_line = std::min(widest_line, screen()->availableSize().width() - 80);
    if (text.size() < 4000) {
        const QRect needed = metrics.boundingRect(QRect(0, 0, longest_line, room),
                                                  Qt::TextWordWrap | Qt::TextExpandTabs, text);
        if (needed.height() <= room && needed.width() <= longest_line) {
            auto *label = new QLabel(text);
            label->setTextFormat(Qt::PlainText);
            label->setWordWrap(metrics.boundingRect(QRect(), Qt::TextExpandTabs, text).width() >
                               longest_line);
            if (label->wordWrap()) label->setFixedWidth(longest_line);
            label->setTextInteractionFlags(Qt::TextSelectableByMouse);
            label->setFocusPolicy(Qt::NoFocus);
            column.addWidget(label);
            return;
        }
    }
    int end_column = 0;
    auto *view = new QPlainTextEdit(with_bearable_lines(text, end_column));
    view->setReadOnly(true);
    view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    int height = 24 * metrics.lineSpacing();
    if (text.size() < 4000) {
        const QRect line(0, 0, longest_line - 40, height);
        const QRect broken = metrics.boundingRect(line, Qt::TextWrapAnywhere | Qt::TextExpandTabs, text);
        height = std::min(height, broken.height() + 2 * metrics.lineSpacing());
    }
    view->setMinimumSize(longest_line, std::min(room, height));
    view->setAccessibleName("Message");
    column.addWidget(view);
}

void Notice::add_buttons(QVBoxLayout &column) {
    auto *row = new QHBoxLayout;
    for (const NoticeButton &button : spec_.buttons) {
        auto *shown = new QPushButton(to_qstring(button.label));
        connect(shown, &QPushButton::clicked, this, [this, value = button.value] { take(value); });
        if (!default_ || spec_.default_value == button.value) default_ = shown;
        row->addWidget(shown);
    }
    row->addStretch();
    default_->setDefault(true);
    column.addLayout(row);
}

void Notice::take(int value) {
    answer_ = value;
    accept();
}

int Notice::escape_value() const {
    if (spec_.escape_value) return *spec_.escape_value;
    const auto cancel = std::ranges::find(spec_.buttons, "Cancel", &NoticeButton::label);
    return cancel == spec_.buttons.end() ? spec_.buttons.back().value : cancel->value;
}

void Notice::keyPressEvent(QKeyEvent *event) {
    for (const NoticeKey &key : spec_.keys)
        if (event->keyCombination() == key.key) return take(key.value);
    QDialog::keyPressEvent(event);
}

void Notice::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    default_->setFocus();
}

// Below what it points at, else above, right or left of it: wherever the screen has room.
void Notice::place(const QWidget *owner, std::optional<QPoint> pointed_at) {
    adjustSize();
    const QRect area = (owner ? owner->screen() : screen())->availableGeometry();
    const auto fitted = [](int wanted, int from, int room, int size) {
        return std::clamp(wanted, from, std::max(from, from + room - size));
    };
    if (!pointed_at) {
        const QRect over = owner ? owner->window()->frameGeometry() : area;
        const QPoint middle = over.center();
        move(fitted(middle.x() - width() / 2, area.x(), area.width(), width()),
             fitted(middle.y() - height() / 2, area.y(), area.height(), height()));
        return;
    }
    const QPoint at = *pointed_at;
    const int x = fitted(at.x() - 30 - arrow_size, area.x(), area.width(), width());
    const int y = fitted(at.y() - 30 - arrow_size, area.y(), area.height(), height());
    if (at.y() + gap_down + height() <= area.bottom())
        side_ = Side::below, move(x, at.y() + gap_down);
    else if (at.y() - gap_down - height() >= area.top())
        side_ = Side::above, move(x, at.y() - gap_down - height());
    else if (at.x() + gap_across + width() <= area.right())
        side_ = Side::right, move(at.x() + gap_across, y);
    else if (at.x() - gap_across - width() >= area.left())
        side_ = Side::left, move(at.x() - gap_across - width(), y);
    else
        move(x, y);
    tip_ = at - pos();
}

QPainterPath Notice::outline() const {
    const QRectF body = QRectF(rect()).adjusted(arrow_size, arrow_size, -arrow_size, -arrow_size);
    QPainterPath path;
    path.addRoundedRect(body, 6, 6);
    if (side_ == Side::none) return path;
    const double size = arrow_size;
    const double x = std::clamp<double>(tip_.x(), body.left() + 2 * size, body.right() - 2 * size);
    const double y = std::clamp<double>(tip_.y(), body.top() + 2 * size, body.bottom() - 2 * size);
    QPolygonF arrow;
    switch (side_) {
        case Side::below:
            arrow << QPointF(x - size, body.top() + 1) << QPointF(x, 0) << QPointF(x + size, body.top() + 1);
            break;
        case Side::above:
            arrow << QPointF(x - size, body.bottom() - 1) << QPointF(x, height())
                  << QPointF(x + size, body.bottom() - 1);
            break;
        case Side::right:
            arrow << QPointF(body.left() + 1, y - size) << QPointF(0, y)
                  << QPointF(body.left() + 1, y + size);
            break;
        default:
            arrow << QPointF(body.right() - 1, y - size) << QPointF(width(), y)
                  << QPointF(body.right() - 1, y + size);
    }
    QPainterPath point;
    point.addPolygon(arrow);
    point.closeSubpath();
    return path.united(point);
}

void Notice::resizeEvent(QResizeEvent *event) {
    QDialog::resizeEvent(event);
    if (points_) setMask(QRegion(outline().toFillPolygon().toPolygon()));
}

void Notice::paintEvent(QPaintEvent *event) {
    if (!points_) return QDialog::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().window());
    painter.setPen(QPen(palette().highlight().color(), 3));
    painter.setBrush(palette().window());
    painter.drawPath(outline());
}

}  // namespace

int ask(QWidget *owner, const NoticeSpec &spec, std::optional<QPoint> pointed_at) {
    if (!spec.silent) QApplication::beep();
    QPointer<Notice> notice = new Notice(owner, spec, pointed_at);
    notice->exec();
    if (!notice) return spec.escape_value.value_or(spec.buttons.back().value);  // its owner has gone
    const int answer = notice->answer();
    delete notice;
    return answer;
}

void tell(QWidget *owner, std::string_view message, bool silent) {
    ask(owner, {.message = std::string(message), .silent = silent});
}

}  // namespace brindle
