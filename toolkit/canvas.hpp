#pragma once
// A drawing area with an X window of its own, a scrollable size and two scrollbars.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/event.hpp"
#include "toolkit/object.hpp"
#include "toolkit/painter.hpp"

namespace brindle::tk {

class Frame;
class Canvas;

// The canvas's horizontal or vertical scrollbar. Pixels.
class Scrollbar : public Object {
  public:
    Scrollbar(Canvas &canvas, bool horizontal) : canvas_(canvas), horizontal_(horizontal) {}
    Canvas &canvas() const { return canvas_; }
    int view_start() const;
    int view_length() const;
    int object_length() const;  // the scrollable width or height
    // Scrolls; the start is kept within 0 .. object length - view length. The canvas is redrawn if it
    // changed.
    void set_view_start(int start);

  private:
    Canvas &canvas_;
    bool horizontal_;
};

// A line of the screen map that a canvas's user adds: kind ("node"), its fields, and its place on the canvas.
struct MapLine {
    std::string kind;
    std::vector<std::string> fields;  // between the frame's id and the box
    Box box;                          // canvas coordinates; lines out of view are left out
};

class Canvas : public Object {
  public:
    struct Impl;
    explicit Canvas(std::unique_ptr<Impl> impl);
    ~Canvas() override;

    Frame &frame() const;
    Scrollbar &hscrollbar();
    Scrollbar &vscrollbar();

    // Draws everything; called when the canvas is due, after a redraw() or when its size has changed. It may
    // set the scrollable size.
    void set_repaint(std::function<void(Canvas &, Painter &)> repaint);
    // Gets pointer buttons and keys, presses and releases.
    void set_event_callback(std::function<void(Canvas &, const Event &)> callback);
    // Lists lines for the screen map; called only while one is kept.
    void set_map_lines(std::function<std::vector<MapLine>()> lines);

    Size visible_size() const;  // the part in view
    Size scrollable_size()
        const;  // never smaller than a pixel; set it to the visible size when nothing is to scroll
    void set_scrollable_size(Size size);
    // The size the canvas asks for when its frame is fitted; 640 x 420 by default.
    void set_preferred_size(Size size);

    // Asks for a repaint when the loop is next idle; many requests make one repaint.
    void redraw();
    // Repaints at once and shows the result.
    void repaint_now();
    // Empties the window in that colour until the next repaint.
    void clear(Colour background);

    // Place of the canvas's upper left corner in its frame, and a canvas point on the screen.
    Point position() const;
    Point to_screen(Point canvas_point) const;
    // The X window (0 while the frame has never been shown).
    unsigned long x_window() const;
    // Gives the keyboard to the canvas.
    void take_focus();

    Impl &impl() const { return *impl_; }

  private:
    std::unique_ptr<Impl> impl_;
    Scrollbar horizontal_{*this, true};
    Scrollbar vertical_{*this, false};
};

}  // namespace brindle::tk
