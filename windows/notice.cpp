#include "windows/notice.hpp"

#include <algorithm>

#include "base/backlog.hpp"
#include "base/text.hpp"
#include "drawing/text.hpp"

namespace brindle {
namespace {

constexpr int arrow_size = 10;
constexpr int gap_down = 36 - arrow_size;  // to the place pointed at, which may have lines of text around it
constexpr int gap_across = 60 - arrow_size;
constexpr int widest_line = 620;

// Under Wayland windows stand where the compositor wants them: notices are ordinary windows there.
bool can_be_placed() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

int escape_value(const NoticeSpec &spec) {
    if (spec.escape_value) return *spec.escape_value;
    const auto cancel = std::ranges::find(spec.buttons, "Cancel", &NoticeButton::label);
    return cancel == spec.buttons.end() ? spec.buttons.back().value : cancel->value;
}

class Notice final : public QDialog {
  public:
    Notice(QWidget *owner, const NoticeSpec &spec, std::optional<QPoint> pointed_at);
    int answer() const { return answer_.value_or(escape_value(spec_)); }

  protected:
    void keyPressEvent(QKeyEvent *event) override {
        for (const NoticeKey &key : spec_.keys)
            if (event->keyCombination() == key.key) return take(key.value);
        QDialog::keyPressEvent(event);
    }
    void showEvent(QShowEvent *event) override {
        QDialog::showEvent(event);
        default_->setFocus();
    }
    void resizeEvent(QResizeEvent *event) override {
        QDialog::resizeEvent(event);
        if (points_) setMask(QRegion(outline().toFillPolygon().toPolygon()));
    }
    void paintEvent(QPaintEvent *event) override;

  private:
    void add_message(QVBoxLayout &column);
    void add_buttons(QVBoxLayout &column);
    void take(int value) {
        answer_ = value;
        accept();
    }
    void place(const QWidget *owner, std::optional<QPoint> pointed_at);
    void place_at(QPoint at, const QRect &area, QPoint over);
    QPainterPath outline() const;

    const NoticeSpec &spec_;
    QPushButton *default_ = nullptr;
    std::optional<int> answer_;
    const bool points_;
    QPoint tip_;     // of the arrow, in the notice
    QPoint inward_;  // the arrow's direction, from its tip; (0, 0): there is no room for an arrow
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
    const std::string message = clean_message(spec_.message);
    const QString text = to_qstring(message);
    const QFontMetrics metrics(font());
    const int room = screen()->availableSize().height() * 2 / 3;
    const int longest_line = std::min(widest_line, screen()->availableSize().width() - 80);
    const auto size_within = [&](const QRect &space, int flags) {
        return metrics.boundingRect(space, flags | Qt::TextExpandTabs, text.left(4000)).size();
    };
    const QSize wrapped = size_within(QRect(0, 0, longest_line, room), Qt::TextWordWrap);
    if (text.size() < 4000 && wrapped.height() <= room && wrapped.width() <= longest_line) {
        auto *label = new QLabel(text);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(size_within({}, 0).width() > longest_line);
        if (label->wordWrap()) label->setFixedWidth(longest_line);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
        return column.addWidget(label);
    }
    std::size_t end_column = 0;
    auto *view = new QPlainTextEdit(to_qstring(with_bearable_lines(message, end_column)));
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

// Without a place to point at: over the middle of the owner's window.
void Notice::place(const QWidget *owner, std::optional<QPoint> pointed_at) {
    adjustSize();
    const QRect area = (owner ? owner->screen() : screen())->availableGeometry();
    const auto fitted = [&](QPoint wanted) {
        return QPoint(std::clamp(wanted.x(), area.left(), std::max(area.left(), area.right() + 1 - width())),
                      std::clamp(wanted.y(), area.top(), std::max(area.top(), area.bottom() + 1 - height())));
    };
    if (!pointed_at) {
        const QRect over = owner ? owner->window()->frameGeometry() : area;
        return move(fitted(over.center() - QPoint(width() / 2, height() / 2)));
    }
    place_at(*pointed_at, area, fitted(*pointed_at - QPoint(30 + arrow_size, 30 + arrow_size)));
    tip_ = *pointed_at - pos();
}

// Below the place, else above, right or left of it: wherever the screen has room; else over it.
void Notice::place_at(QPoint at, const QRect &area, QPoint over) {
    const int below = at.y() + gap_down, above = at.y() - gap_down - height();
    const int right = at.x() + gap_across, left = at.x() - gap_across - width();
    if (below + height() <= area.bottom())
        inward_ = {0, 1}, over.setY(below);
    else if (above >= area.top())
        inward_ = {0, -1}, over.setY(above);
    else if (right + width() <= area.right())
        inward_ = {1, 0}, over.setX(right);
    else if (left >= area.left())
        inward_ = {-1, 0}, over.setX(left);
    move(over);
}

// A box with the arrow, whose tip is on the window's edge and whose foot is just inside the box.
QPainterPath Notice::outline() const {
    const QRect body = rect().adjusted(arrow_size, arrow_size, -arrow_size, -arrow_size);
    QPainterPath path;
    path.addRoundedRect(body, 6, 6);
    if (inward_.isNull()) return path;
    const QPoint foot(std::clamp(tip_.x(), body.left() + 2 * arrow_size, body.right() + 1 - 2 * arrow_size),
                      std::clamp(tip_.y(), body.top() + 2 * arrow_size, body.bottom() + 1 - 2 * arrow_size));
    const QPoint tip = inward_.y() ? QPoint(foot.x(), inward_.y() > 0 ? 0 : height())
                                   : QPoint(inward_.x() > 0 ? 0 : width(), foot.y());
    const QPoint end = tip + inward_ * (arrow_size + 1), aside = inward_.transposed() * arrow_size;
    QPainterPath arrow;
    arrow.addPolygon(QPolygon({end - aside, tip, end + aside}));
    arrow.closeSubpath();
    return path.united(arrow);
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
    const int answer = notice ? notice->answer() : escape_value(spec);  // null: its owner has gone
    delete notice;
    return answer;
}

void tell(QWidget *owner, std::string_view message, bool silent) {
    ask(owner, {.message = std::string(message), .silent = silent});
}

}  // namespace brindle
