#pragma once
// A canvas as the toolkit's files see it.
#include <FL/Fl_Group.H>

#include <functional>
#include <memory>
#include <vector>

#include "toolkit/canvas.hpp"
#include "toolkit/scroll_widget.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

class PaintWindow;

// The pixmap that a canvas is drawn on before it is shown.
class BackBuffer {
  public:
    BackBuffer() = default;
    ~BackBuffer();
    BackBuffer(const BackBuffer &) = delete;
    BackBuffer &operator=(const BackBuffer &) = delete;
    void fit(Size size);  // makes it that big; its contents are lost when that is a change
    Pixmap pixmap() const { return pixmap_; }
    XftDraw *draw() const { return draw_.get(); }
    GC gc() const { return gc_; }
    Size size() const { return size_; }

  private:
    void release();

    Pixmap pixmap_ = None;
    GC gc_ = nullptr;
    XftDrawPtr draw_;
    Size size_;
};

struct Canvas::Impl {
    explicit Impl(Frame &owner);
    ~Impl();

    Frame *frame;
    Canvas *self = nullptr;
    std::function<void(Canvas &, Painter &)> repaint;
    std::function<void(Canvas &, const Event &)> on_event;
    std::function<std::vector<MapLine>()> map_lines;

    std::unique_ptr<Fl_Group> group;
    std::unique_ptr<PaintWindow> paint;
    ScrollWidget hbar{true};
    ScrollWidget vbar{false};
    BackBuffer buffer;

    void attach(Canvas &canvas, Fl_Group &window);
    void move_to(Box box);  // px, in the frame's window
    Size preferred() const { return preferred_; }
    void set_preferred(Size size) { preferred_ = size; }
    Size visible() const;                        // px
    Point view_start() const;                    // px
    void set_scrollable(Size size);              // px
    bool scroll_to(bool horizontal, int start);  // px
    void request() { dirty_ = dirty_ || !painting_; }
    bool due() const { return dirty_; }
    void repaint_buffer();
    void show_buffer();
    Box screen_box() const;  // of the part in view, px
    Fl_Widget *focus_target();
    void deliver_button(bool negative);
    void deliver_key(Event event);
    void set_pointer(Fl_Cursor pointer);

  private:
    Size preferred_;
    bool dirty_ = true;
    bool painting_ = false;
};

// Draws the canvases that asked for it and are on the screen.
void repaint_due_canvases();
// Whether it is the drawing area of a canvas.
bool canvas_widget(const Fl_Widget *widget);

}  // namespace brindle::tk
