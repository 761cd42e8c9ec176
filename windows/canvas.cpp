#include "windows/canvas.hpp"

#include <algorithm>
#include <cmath>

#include "windows/canvas_accessible.hpp"

namespace brindle {
namespace {

constexpr double least_zoom = 1.0 / 50;
constexpr double most_zoom = 8;
constexpr int scroll_step = 20;
constexpr double zoom_per_wheel_unit = 1.0015;  // a notch of the wheel is 120 of them

// What start makes a place visible on a bar's scale.
int start_with(double at, const QScrollBar &bar) {
    const int place = static_cast<int>(std::lround(at));
    const bool outside = place <= bar.value() || place >= bar.value() + bar.pageStep();
    return outside ? place - bar.pageStep() / 2 : bar.value();
}

void adjust_bar(QScrollBar &bar, double tree, int visible) {
    bar.setRange(0, std::max(0, static_cast<int>(std::ceil(tree)) - visible));
    bar.setPageStep(visible);
    bar.setSingleStep(scroll_step);
}

// How far a turn of the wheel scrolls.
QPoint wheel_distance(const QWheelEvent &event) {
    const QPoint notches = event.angleDelta() * (3 * scroll_step) / QWheelEvent::DefaultDeltasPerStep;
    const QPoint distance = event.pixelDelta().isNull() ? notches : event.pixelDelta();
    return event.modifiers() & Qt::ShiftModifier ? distance.transposed() : distance;
}

}  // namespace

Canvas::Canvas(QWidget *parent)
    : QAbstractScrollArea(parent),
      picture_(find_tree_fonts(start_font, LayoutParams().font_scale).value_or(TreeFonts())) {
    install_canvas_accessibility();
    setObjectName(QStringLiteral("canvas"));
    setAccessibleName(tr("Tree"));
    setFocusPolicy(Qt::StrongFocus);
    setLayoutDirection(Qt::LeftToRight);  // x grows to the right in every language
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

// ---------------------------------------------------------------- what is shown

void Canvas::refresh() {
    cleared_ = false;
    picture_.forget();
    viewport()->update();
    if (layout_is_due_) return;
    layout_is_due_ = true;
    // Before the next painting: the bars it may show or hide change the viewport.
    QMetaObject::invokeMethod(
        this,
        [this] {
            layout_is_due_ = false;
            lay_out_now();
        },
        Qt::QueuedConnection);
}

void Canvas::lay_out_now() {
    if (cleared_ || picture_.is_laid_out() || !on_need) return;
    const Shown shown = on_need();
    picture_.lay_out(shown.root, shown.params, shown.show_punctuation);
    adjust_bars();
    viewport()->update();
    if (shown.root && on_laid_out) on_laid_out();
}

void Canvas::clear() {
    cleared_ = true;
    picture_.forget();
    adjust_bars();
    viewport()->update();
}

void Canvas::set_message(const QString &text) {
    message_ = text;
    viewport()->update();
}

void Canvas::set_fonts(const TreeFonts &fonts) {
    const bool cleared = cleared_;
    picture_.set_fonts(fonts);
    refresh();
    cleared_ = cleared;
}

void Canvas::set_colours(const std::optional<TreeColours> &own) {
    own_colours_ = own;
    viewport()->update();
}

void Canvas::paintEvent(QPaintEvent *event) {
    lay_out_now();
    QPainter painter(viewport());
    const TreeColours now = colours();
    painter.fillRect(event->rect(), now.ground);
    if (picture_.is_laid_out()) {
        painter.scale(zoom_, zoom_);
        painter.translate(-origin());
        const QRectF part(picture_place(event->rect().topLeft()), QSizeF(event->rect().size()) / zoom_);
        picture_.paint(painter, part, now, true);
    } else if (!message_.isEmpty()) {
        painter.setPen(now.category);
        painter.setFont(picture_.fonts().word);
        painter.drawText(QPoint(top_baseline, top_baseline), message_);
    }
}

// ---------------------------------------------------------------- places

QPointF Canvas::origin() const {
    return QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value()) / zoom_;
}

QPoint Canvas::screen_place_of(const Node *node) {
    lay_out_now();
    return viewport()->mapToGlobal(view_place(picture_.place_of(node)).toPoint());
}

QRect Canvas::view_box_of(const QRectF &picture_box) const {
    return QRectF(view_place(picture_box.topLeft()), picture_box.size() * zoom_).toAlignedRect();
}

void Canvas::set_focus_node(const Node *node) {
    focus_node_ = node;
    tell_focus_node(*this);
}

// ---------------------------------------------------------------- scrolling and zooming

void Canvas::adjust_bars() {
    const QSizeF tree = picture_.size() * zoom_;
    adjust_bar(*horizontalScrollBar(), tree.width(), viewport()->width());
    adjust_bar(*verticalScrollBar(), tree.height(), viewport()->height());
}

void Canvas::resizeEvent(QResizeEvent *) {
    if (picture_.is_laid_out() || cleared_) adjust_bars();
}

// Moves what is in view, so that only what comes into view is painted.
void Canvas::scrollContentsBy(int dx, int dy) {
    if (picture_.is_laid_out())
        viewport()->scroll(dx, dy);
    else
        viewport()->update();
}

void Canvas::scroll_to(QPoint start) {
    horizontalScrollBar()->setValue(start.x());
    verticalScrollBar()->setValue(start.y());
}

void Canvas::scroll_by(int dx, int dy) {
    scroll_to({horizontalScrollBar()->value() + dx, verticalScrollBar()->value() + dy});
}

void Canvas::make_visible(const Node *node) {
    lay_out_now();
    const QPointF at = picture_.place_of(node) * zoom_;
    scroll_to({start_with(at.x(), *horizontalScrollBar()), start_with(at.y(), *verticalScrollBar())});
}

double Canvas::fitting_zoom() const {
    const QSizeF tree = picture_.size();
    if (tree.isEmpty()) return 1;
    const QSize view = maximumViewportSize();
    return std::min({1.0, view.width() / tree.width(), view.height() / tree.height()});
}

void Canvas::take_zoom(double zoom) {
    zoom_ = zoom;
    adjust_bars();
    viewport()->update();
}

void Canvas::set_zoom(double zoom, QPointF around) {
    lay_out_now();
    const QPointF fixed = picture_place(around);
    take_zoom(std::clamp(zoom, std::min(least_zoom, fitting_zoom()), most_zoom));
    scroll_to((fixed * zoom_ - around).toPoint());
}

void Canvas::set_zoom(double zoom) {
    set_zoom(zoom, QRectF(viewport()->rect()).center());
}

void Canvas::fit() {
    lay_out_now();
    take_zoom(fitting_zoom());
    scroll_to_start();
}

// ---------------------------------------------------------------- mouse and keys

void Canvas::wheelEvent(QWheelEvent *event) {
    event->accept();
    if (event->modifiers() & Qt::ControlModifier) {
        set_zoom(zoom_ * std::pow(zoom_per_wheel_unit, event->angleDelta().y()), event->position());
    } else {
        const QPoint distance = wheel_distance(*event);
        scroll_by(-distance.x(), -distance.y());
    }
}

void Canvas::keyPressEvent(QKeyEvent *event) {
    if (on_key && on_key(*event))
        event->accept();
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void Canvas::mousePressEvent(QMouseEvent *event) {
    lay_out_now();
    const Hit hit = picture_.hit(picture_place(event->position()));
    may_pan_ = event->button() == Qt::LeftButton && !hit.node;
    pan_from_ = event->position().toPoint();
    if (on_press) on_press(*event, hit);
}

void Canvas::mouseMoveEvent(QMouseEvent *event) {
    const QPoint at = event->position().toPoint();
    if (!may_pan_ || !(event->buttons() & Qt::LeftButton)) return;
    if (!panning_ && (at - pan_from_).manhattanLength() < QApplication::startDragDistance()) return;
    if (!panning_) viewport()->setCursor(Qt::ClosedHandCursor);
    panning_ = true;
    scroll_by(pan_from_.x() - at.x(), pan_from_.y() - at.y());
    pan_from_ = at;
}

void Canvas::mouseReleaseEvent(QMouseEvent *) {
    if (panning_) viewport()->unsetCursor();
    may_pan_ = panning_ = false;
}

}  // namespace brindle
