#include "toolkit/scroll_widget.hpp"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>

#include "toolkit/look.hpp"
#include "toolkit/scale.hpp"

namespace brindle::tk {

namespace {

constexpr Fl_Color TROUGH = 0xE2E5E800;
constexpr Fl_Color THUMB = 0xB0B6BD00;
constexpr Fl_Color THUMB_OVER = 0x959CA500;
constexpr int THUMB_MIN = 24;

}  // namespace

ScrollWidget::ScrollWidget(bool horizontal) : Fl_Widget(0, 0, 1, 1), horizontal_(horizontal) {}

bool ScrollWidget::set_view(int start, int length, int total) {
    const int kept = std::clamp(start, 0, std::max(0, total - length));
    if (kept == start_ && length == length_ && total == total_) return false;
    start_ = kept;
    length_ = length;
    total_ = total;
    redraw();
    return true;
}

void ScrollWidget::scroll_by(int units) {
    if (set_view(start_ + units, length_, total_) && on_scroll) on_scroll();
}

Box ScrollWidget::thumb() const {
    const int room = horizontal_ ? w() : h();
    if (max_start() == 0) return {x(), y(), w(), h()};
    const auto share = static_cast<double>(length_) / total_;
    const int size = std::clamp(static_cast<int>(room * share), std::min(px(THUMB_MIN), room), room);
    const auto place = static_cast<double>(start_) / max_start();
    const int offset = static_cast<int>(std::lround((room - size) * place));
    return horizontal_ ? Box{x() + offset, y(), size, h()} : Box{x(), y() + offset, w(), size};
}

int ScrollWidget::pointer() const {
    return horizontal_ ? Fl::event_x() : Fl::event_y();
}

void ScrollWidget::draw() {
    fl_color(TROUGH);
    fl_rectf(x(), y(), w(), h());
    if (max_start() == 0) return;
    const Box box = thumb();
    const int inset = px(2);
    fl_color(over_ || grip_ >= 0 ? THUMB_OVER : THUMB);
    fl_rectf(box.x + inset, box.y + inset, box.w - 2 * inset, box.h - 2 * inset);
}

int ScrollWidget::push() {
    const Box box = thumb();
    if (box.contains({Fl::event_x(), Fl::event_y()})) {
        grip_ = pointer() - along(box);
        redraw();
    } else {
        scroll_by(pointer() < along(box) ? -length_ : length_);
    }
    return 1;
}

int ScrollWidget::drag() {
    const Box box = thumb();
    const int room = horizontal_ ? w() - box.w : h() - box.h;
    if (grip_ < 0 || room <= 0) return 1;
    const int offset = std::clamp(pointer() - grip_ - (horizontal_ ? x() : y()), 0, room);
    const auto wanted = std::lround(static_cast<double>(offset) * max_start() / room);
    scroll_by(static_cast<int>(wanted) - start_);
    return 1;
}

int ScrollWidget::handle(int event) {
    switch (event) {
        case FL_ENTER:
        case FL_LEAVE:
            over_ = event == FL_ENTER;
            redraw();
            return 1;
        case FL_PUSH:
            return push();
        case FL_DRAG:
            return drag();
        case FL_RELEASE:
            drag();  // FLTK may tell of the way to here only afterwards
            grip_ = -1;
            redraw();
            return 1;
        case FL_MOUSEWHEEL:
            scroll_by((Fl::event_dy() + Fl::event_dx()) * step * 3);
            return 1;
        default:
            return Fl_Widget::handle(event);
    }
}

}  // namespace brindle::tk
