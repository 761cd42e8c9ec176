#pragma once
// Drawing on a canvas. Coordinates are canvas coordinates, whatever part is in view; what lies outside it
// costs next to nothing.
#include <memory>
#include <string_view>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

class Canvas;
class Font;

// What a line or text is drawn with.
struct GraphicsContext {
    Colour foreground{0, 0, 0};
    Colour background{255, 255, 255};
    const Font *font = nullptr;  // for texts
    int line_width = 0;          // 0: the thinnest line. Solid lines, butt caps, mitred joins
};

// Made by the canvas for one repaint; draws off screen, and the canvas shows the whole when the repaint is
// over.
class Painter {
  public:
    struct Impl;
    explicit Painter(Impl &impl) : impl_(impl) {}
    Painter(const Painter &) = delete;
    Painter &operator=(const Painter &) = delete;

    // Fills everything with the background colour.
    void clear(const GraphicsContext &gc);
    void line(const GraphicsContext &gc, Point from, Point to);
    // Fills the box with the foreground colour.
    void fill(const GraphicsContext &gc, Box box);
    // Text (locale) with its left edge at x and its baseline at y, in the foreground colour.
    void text(const GraphicsContext &gc, Point at, std::string_view text);
    // The part of the canvas in view.
    Box visible() const;

  private:
    Impl &impl_;
};

}  // namespace brindle::tk
