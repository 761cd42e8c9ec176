#pragma once
// Places and sizes. Everything outside toolkit/ counts in unscaled pixels; the toolkit multiplies by its own
// factor.

namespace brindle::tk {

struct Point {
    int x = 0;
    int y = 0;
    bool operator==(const Point &) const = default;
};

struct Size {
    int w = 0;
    int h = 0;
    bool operator==(const Size &) const = default;
};

struct Box {
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    bool operator==(const Box &) const = default;
    bool contains(Point p) const { return p.x >= x && p.x < x + w && p.y >= y && p.y < y + h; }
};

struct Colour {
    unsigned char r = 0;
    unsigned char g = 0;
    unsigned char b = 0;
    bool operator==(const Colour &) const = default;
};

}  // namespace brindle::tk
