#pragma once
#include <vector>

#include "toolkit/canvas_impl.hpp"
#include "toolkit/painter.hpp"

namespace brindle::tk {

struct Painter::Impl {
    explicit Impl(Canvas::Impl &drawn) : canvas(drawn) {}
    Canvas::Impl &canvas;
    int line_width = -1;  // that the X graphics context has now
    std::vector<XftGlyphFontSpec> glyphs;
};

}  // namespace brindle::tk
