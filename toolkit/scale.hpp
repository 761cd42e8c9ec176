#pragma once
// Between the unscaled pixels of the interface and the screen's. Inside the toolkit "px" are the screen's.
#include <cmath>

#include "toolkit/display.hpp"

namespace brindle::tk {

inline int px(double unscaled) {
    return static_cast<int>(std::lround(unscaled * scale()));
}
inline int unscaled(int screen_pixels) {
    return static_cast<int>(std::floor(screen_pixels / scale() + 0.001));
}
inline Point unscaled(Point p) {
    return {unscaled(p.x), unscaled(p.y)};
}
inline Point px(Point p) {
    return {px(p.x), px(p.y)};
}

}  // namespace brindle::tk
