#include "toolkit/canvas.hpp"

#include <FL/Fl.H>
#include <FL/Fl_Window.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <utility>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/frame_impl.hpp"
#include "toolkit/look.hpp"
#include "toolkit/painter_impl.hpp"
#include "toolkit/scale.hpp"

namespace brindle::tk {

namespace {

constexpr Size PREFERRED{640, 420};
constexpr int WHEEL_LINES = 3;

}  // namespace

// The X window that is drawn on.
class PaintWindow : public Fl_Window {
  public:
    explicit PaintWindow(Canvas::Impl &drawn) : Fl_Window(0, 0, 1, 1), canvas(drawn) {
        end();
        box(FL_NO_BOX);
    }
    Canvas::Impl &canvas;
    void draw() override { canvas.show_buffer(); }
    int handle(int event) override;

  private:
    int wheel();
};

int PaintWindow::wheel() {
    const bool sideways = (Fl::event_state() & FL_SHIFT) != 0;
    const int along = Fl::event_dy() * canvas.vbar.step * WHEEL_LINES;
    (sideways ? canvas.hbar : canvas.vbar).scroll_by(along);
    canvas.hbar.scroll_by(Fl::event_dx() * canvas.hbar.step * WHEEL_LINES);
    return 1;
}

int PaintWindow::handle(int event) {
    switch (event) {
        case FL_PUSH:
            Fl::focus(this);
            canvas.deliver_button(false);
            return 1;
        case FL_RELEASE:
            canvas.deliver_button(true);
            return 1;
        case FL_MOUSEWHEEL:
            return wheel();
        case FL_DRAG:
        case FL_ENTER:
        case FL_FOCUS:
        case FL_UNFOCUS:
            return 1;
        default:
            return Fl_Window::handle(event);
    }
}

bool canvas_widget(const Fl_Widget *widget) {
    return dynamic_cast<const PaintWindow *>(widget) != nullptr;
}

Canvas::Impl::Impl(Frame &owner)
    : frame(&owner),
      group(std::make_unique<Fl_Group>(0, 0, 1, 1)),
      paint(std::make_unique<PaintWindow>(*this)),
      preferred_{px(PREFERRED.w), px(PREFERRED.h)} {
    group->end();
    group->box(FL_FLAT_BOX);
    group->color(look::GROUND);
    group->resizable(nullptr);
    group->add(paint.get());
    group->add(hbar);
    group->add(vbar);
    hbar.step = vbar.step = px(16);
    hbar.on_scroll = vbar.on_scroll = [this] { request(); };
}

Canvas::Impl::~Impl() {
    group->remove(hbar);
    group->remove(vbar);
    paint.reset();
}

void Canvas::Impl::attach(Canvas &canvas, Fl_Group &window) {
    self = &canvas;
    window.add(group.get());
    paint->show();
    frame->impl().lay_out();
}

Size Canvas::Impl::visible() const {
    return {paint->w(), paint->h()};
}

Point Canvas::Impl::view_start() const {
    return {hbar.start(), vbar.start()};
}

void Canvas::Impl::move_to(Box box) {
    const Size before = visible();
    const int bar = px(look::SCROLLBAR);
    const int width = std::max(1, box.w - bar);
    const int height = std::max(1, box.h - bar);
    group->resize(box.x, box.y, box.w, box.h);
    paint->resize(box.x, box.y, width, height);
    hbar.resize(box.x, box.y + height, width, bar);
    vbar.resize(box.x + width, box.y, bar, height);
    group->init_sizes();
    set_scrollable({hbar.total(), vbar.total()});
    if (before != visible()) request();
}

void Canvas::Impl::set_scrollable(Size size) {
    const bool across = hbar.set_view(hbar.start(), visible().w, std::max(1, size.w));
    const bool down = vbar.set_view(vbar.start(), visible().h, std::max(1, size.h));
    if (across || down) request();
}

bool Canvas::Impl::scroll_to(bool horizontal, int start) {
    ScrollWidget &bar = horizontal ? hbar : vbar;
    const bool moved = bar.set_view(start, bar.length(), bar.total());
    if (moved) request();
    return moved;
}

void Canvas::Impl::repaint_buffer() {
    if (painting_ || !paint->shown()) return;
    dirty_ = false;
    painting_ = true;
    buffer.fit(visible());
    Painter::Impl drawing(*this);
    Painter painter(drawing);
    if (repaint) {
        repaint(*self, painter);
    } else {
        painter.clear({text_foreground(), text_background(), nullptr, 0});
    }
    painting_ = false;
    paint->damage(FL_DAMAGE_ALL);
}

void Canvas::Impl::show_buffer() {
    if (!buffer.pixmap()) return;
    XCopyArea(x_display(), buffer.pixmap(), fl_xid(paint.get()), buffer.gc(), 0, 0,
              static_cast<unsigned>(buffer.size().w), static_cast<unsigned>(buffer.size().h), 0, 0);
}

Box Canvas::Impl::screen_box() const {
    const Point at = paint->shown() ? place_on_screen(fl_xid(paint.get())) : Point{};
    return {at.x, at.y, paint->w(), paint->h()};
}

Fl_Widget *Canvas::Impl::focus_target() {
    return paint.get();
}

void Canvas::Impl::deliver_button(bool negative) {
    constexpr int codes[] = {EVENT_SELECT, EVENT_ADJUST, EVENT_MENU};
    const int button = Fl::event_button();
    if (!on_event || button < 1 || button > 3) return;
    Event event;
    decode_modifiers(event);
    event.code = codes[button - 1];
    event.negative = negative;
    event.at = unscaled(Point{Fl::event_x() + hbar.start(), Fl::event_y() + vbar.start()});
    event.screen = unscaled(Point{Fl::event_x_root(), Fl::event_y_root()});
    const auto callback = on_event;
    callback(*self, event);
}

void Canvas::Impl::deliver_key(Event event) {
    const auto callback = on_event;
    if (!callback) return;
    const Box box = screen_box();
    event.at =
        unscaled(Point{px(event.screen.x) - box.x + hbar.start(), px(event.screen.y) - box.y + vbar.start()});
    callback(*self, event);
    event.negative = true;
    if (frame->shown()) callback(*self, event);
}

void Canvas::Impl::set_pointer(Fl_Cursor pointer) {
    if (paint->shown()) paint->cursor(pointer);
}

void repaint_due_canvases() {
    for (std::size_t n = 0; n < all_frames().size(); ++n) {  // a repaint may make frames
        const Frame::Impl &frame = *all_frames()[n];
        if (frame.canvas && frame.canvas->impl().due()) frame.canvas->impl().repaint_buffer();
    }
}

Canvas::Canvas(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Canvas::~Canvas() = default;

Frame &Canvas::frame() const {
    return *impl_->frame;
}
Scrollbar &Canvas::hscrollbar() {
    return horizontal_;
}
Scrollbar &Canvas::vscrollbar() {
    return vertical_;
}

void Canvas::set_repaint(std::function<void(Canvas &, Painter &)> repaint) {
    impl_->repaint = std::move(repaint);
    impl_->request();
}

void Canvas::set_event_callback(std::function<void(Canvas &, const Event &)> callback) {
    impl_->on_event = std::move(callback);
}

void Canvas::set_map_lines(std::function<std::vector<MapLine>()> lines) {
    impl_->map_lines = std::move(lines);
}

Size Canvas::visible_size() const {
    return {unscaled(impl_->visible().w), unscaled(impl_->visible().h)};
}

Size Canvas::scrollable_size() const {
    return {unscaled(impl_->hbar.total()), unscaled(impl_->vbar.total())};
}

void Canvas::set_scrollable_size(Size size) {
    impl_->set_scrollable({px(size.w), px(size.h)});
}
void Canvas::set_preferred_size(Size size) {
    impl_->set_preferred({px(size.w), px(size.h)});
}

void Canvas::redraw() {
    impl_->request();
}

void Canvas::repaint_now() {
    impl_->repaint_buffer();
    Fl::flush();
}

void Canvas::clear(Colour background) {
    if (!impl_->paint->shown()) return;
    impl_->buffer.fit(impl_->visible());
    Painter::Impl drawing(*impl_);
    Painter(drawing).clear({background, background, nullptr, 0});
    impl_->paint->damage(FL_DAMAGE_ALL);
    Fl::flush();
}

Point Canvas::position() const {
    return unscaled(Point{impl_->group->x(), impl_->group->y()});
}

Point Canvas::to_screen(Point canvas_point) const {
    const Box box = impl_->screen_box();
    const Point start = impl_->view_start();
    return unscaled(Point{px(canvas_point.x) - start.x + box.x, px(canvas_point.y) - start.y + box.y});
}

unsigned long Canvas::x_window() const {
    return impl_->paint->shown() ? fl_xid(impl_->paint.get()) : 0;
}

void Canvas::take_focus() {
    Fl::focus(impl_->paint.get());
}

int Scrollbar::view_start() const {
    const Point start = unscaled(canvas_.impl().view_start());
    return horizontal_ ? start.x : start.y;
}

int Scrollbar::view_length() const {
    return horizontal_ ? canvas_.visible_size().w : canvas_.visible_size().h;
}

int Scrollbar::object_length() const {
    return horizontal_ ? canvas_.scrollable_size().w : canvas_.scrollable_size().h;
}

void Scrollbar::set_view_start(int start) {
    canvas_.impl().scroll_to(horizontal_, px(start));
}

}  // namespace brindle::tk
