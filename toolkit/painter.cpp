#include "toolkit/painter.hpp"

#include <algorithm>

#include "toolkit/font_impl.hpp"
#include "toolkit/painter_impl.hpp"
#include "toolkit/scale.hpp"

namespace brindle::tk {

namespace {

constexpr int MARGIN = 256;  // px around the view within which X may do the clipping

void set_foreground(const BackBuffer &buffer, Colour colour) {
    XSetForeground(x_display(), buffer.gc(), fl_xpixel(colour.r, colour.g, colour.b));
}

XftColor xft_colour(Colour colour) {
    const auto wide = [](unsigned char value) { return static_cast<unsigned short>(value * 0x101); };
    XftColor made{};
    made.pixel = fl_xpixel(colour.r, colour.g, colour.b);
    made.color = {wide(colour.r), wide(colour.g), wide(colour.b), 0xFFFF};
    return made;
}

struct Line {
    double x1, y1, x2, y2;
};

// Cuts the line at one edge: what keeps `distance` (signed, of each end) positive stays.
bool cut(Line &line, double distance1, double distance2) {
    if (distance1 < 0 && distance2 < 0) return false;
    if (distance1 >= 0 && distance2 >= 0) return true;
    const double share = distance1 / (distance1 - distance2);
    const double x = line.x1 + share * (line.x2 - line.x1);
    const double y = line.y1 + share * (line.y2 - line.y1);
    (distance1 < 0 ? line.x1 : line.x2) = x;
    (distance1 < 0 ? line.y1 : line.y2) = y;
    return true;
}

// Cuts the line to the view and a margin; X coordinates have 16 bits only. False: nothing is left.
bool clip(Line &line, Size view) {
    const double right = view.w + MARGIN;
    const double bottom = view.h + MARGIN;
    return cut(line, line.x1 + MARGIN, line.x2 + MARGIN) && cut(line, right - line.x1, right - line.x2) &&
           cut(line, line.y1 + MARGIN, line.y2 + MARGIN) && cut(line, bottom - line.y1, bottom - line.y2);
}

int to_int(double value) {
    return static_cast<int>(std::lround(value));
}

}  // namespace

void Painter::clear(const GraphicsContext &gc) {
    const BackBuffer &buffer = impl_.canvas.buffer;
    set_foreground(buffer, gc.background);
    XFillRectangle(x_display(), buffer.pixmap(), buffer.gc(), 0, 0, static_cast<unsigned>(buffer.size().w),
                   static_cast<unsigned>(buffer.size().h));
}

void Painter::line(const GraphicsContext &gc, Point from, Point to) {
    const BackBuffer &buffer = impl_.canvas.buffer;
    const Point start = impl_.canvas.view_start();
    const double factor = scale();
    Line line{from.x * factor - start.x, from.y * factor - start.y, to.x * factor - start.x,
              to.y * factor - start.y};
    if (!clip(line, buffer.size())) return;
    const int width = gc.line_width > 1 ? std::max(1, px(gc.line_width)) : gc.line_width;
    if (width != impl_.line_width) {
        XSetLineAttributes(x_display(), buffer.gc(), static_cast<unsigned>(width), LineSolid, CapButt,
                           JoinMiter);
        impl_.line_width = width;
    }
    set_foreground(buffer, gc.foreground);
    XDrawLine(x_display(), buffer.pixmap(), buffer.gc(), to_int(line.x1), to_int(line.y1), to_int(line.x2),
              to_int(line.y2));
}

void Painter::fill(const GraphicsContext &gc, Box box) {
    const BackBuffer &buffer = impl_.canvas.buffer;
    const Point start = impl_.canvas.view_start();
    const int left = std::max(px(box.x) - start.x, -MARGIN);
    const int top = std::max(px(box.y) - start.y, -MARGIN);
    const int right = std::min(px(box.x + box.w) - start.x, buffer.size().w + MARGIN);
    const int bottom = std::min(px(box.y + box.h) - start.y, buffer.size().h + MARGIN);
    if (right <= left || bottom <= top) return;
    set_foreground(buffer, gc.foreground);
    XFillRectangle(x_display(), buffer.pixmap(), buffer.gc(), left, top, static_cast<unsigned>(right - left),
                   static_cast<unsigned>(bottom - top));
}

void Painter::text(const GraphicsContext &gc, Point at, std::string_view text) {
    if (!gc.font) return;
    Font::Impl &font = gc.font->impl();
    const BackBuffer &buffer = impl_.canvas.buffer;
    const Point start = impl_.canvas.view_start();
    const Point place{px(at.x) - start.x, px(at.y) - start.y};
    const int height = 2 * (font.main->ascent + font.main->descent);
    const bool outside = place.x > buffer.size().w || place.y < -height || place.y > buffer.size().h + height;
    constexpr int far_left = -30000;
    if (outside || place.x < far_left) return;
    impl_.glyphs.clear();
    font.place(text, place, impl_.glyphs);
    std::erase_if(impl_.glyphs, [&](const XftGlyphFontSpec &glyph) {
        return glyph.x > buffer.size().w || glyph.x < -MARGIN;
    });
    const XftColor colour = xft_colour(gc.foreground);
    XftDrawGlyphFontSpec(buffer.draw(), &colour, impl_.glyphs.data(), static_cast<int>(impl_.glyphs.size()));
}

Box Painter::visible() const {
    const Point start = unscaled(impl_.canvas.view_start());
    const Size size = impl_.canvas.visible();
    return {start.x, start.y, unscaled(size.w) + 1, unscaled(size.h) + 1};
}

}  // namespace brindle::tk
