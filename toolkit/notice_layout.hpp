#pragma once
// Where a notice goes and how its message is broken into lines. Pixels of the screen.
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/geometry.hpp"

namespace brindle::tk {

struct NoticePosition {
    enum class Side { none, below, above, right, left };  // of the place that it points at
    Point at;
    Side side = Side::none;
    Point arrow;  // the place it points at, seen from its upper left corner
};

// Beside a place of the screen, on the screen, and not over the place unless there is no room for anything
// else.
NoticePosition beside(Point pointed, Size size, Box area);
// In the middle of the box, but on the screen.
NoticePosition in_the_middle(Box box, Size size, Box area);

// The lines of a message (locale text) as a notice shows them: cleaned, and long ones broken between words.
std::vector<std::string> notice_lines(std::string_view message);
// How many lines fit into a notice.
int notice_lines_max();

}  // namespace brindle::tk
