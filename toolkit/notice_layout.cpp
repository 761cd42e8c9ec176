#include "toolkit/notice_layout.hpp"

#include <algorithm>

#include "toolkit/look.hpp"
#include "toolkit/scale.hpp"
#include "toolkit/text.hpp"
#include "toolkit/x11.hpp"

namespace brindle::tk {

namespace {

constexpr int LINE_WIDTH = 620;  // unscaled; longer lines are broken
constexpr int GAP_DOWN = 36;     // to the place pointed at, which may have lines of text around it
constexpr int GAP_ACROSS = 60;

int clamp_in(int wanted, int from, int room, int size) {
    return std::clamp(wanted, from, std::max(from, from + room - size));
}

// The end of the piece of the line that fits: a blank, or if there is none the last byte that fits.
std::size_t fitting(std::string_view line, int width) {
    std::size_t blank = std::string_view::npos;
    std::size_t end = 0;
    std::string_view rest = line;
    while (!rest.empty()) {
        next_character(rest);
        const std::size_t next = line.size() - rest.size();
        if (text_width(to_display(line.substr(0, next))) > width) break;
        end = next;
        if (end < line.size() && line[end] == ' ') blank = end;
    }
    if (end == line.size() || end == 0) return line.size();
    return blank == std::string_view::npos ? end : blank;
}

void break_line(std::string_view line, std::vector<std::string> &lines) {
    while (!line.empty()) {
        const bool whole = text_width(to_display(line)) <= px(LINE_WIDTH);
        const std::size_t end = whole ? line.size() : fitting(line, px(LINE_WIDTH));
        lines.emplace_back(line.substr(0, end));
        line.remove_prefix(end);
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    }
}

}  // namespace

NoticePosition beside(Point pointed, Size size, Box area) {
    using Side = NoticePosition::Side;
    const int down = px(GAP_DOWN);
    const int across = px(GAP_ACROSS);
    const int x = clamp_in(pointed.x - px(30), area.x, area.w, size.w);
    const int y = clamp_in(pointed.y - px(30), area.y, area.h, size.h);
    NoticePosition found;
    if (pointed.y + down + size.h <= area.y + area.h) {
        found = {{x, pointed.y + down}, Side::below, {}};
    } else if (pointed.y - down - size.h >= area.y) {
        found = {{x, pointed.y - down - size.h}, Side::above, {}};
    } else if (pointed.x + across + size.w <= area.x + area.w) {
        found = {{pointed.x + across, y}, Side::right, {}};
    } else if (pointed.x - across - size.w >= area.x) {
        found = {{pointed.x - across - size.w, y}, Side::left, {}};
    } else {
        found = {{x, y}, Side::none, {}};
    }
    found.arrow = {pointed.x - found.at.x, pointed.y - found.at.y};
    return found;
}

NoticePosition in_the_middle(Box box, Size size, Box area) {
    NoticePosition found;
    found.at = {clamp_in(box.x + (box.w - size.w) / 2, area.x, area.w, size.w),
                clamp_in(box.y + (box.h - size.h) / 2, area.y, area.h, size.h)};
    return found;
}

std::vector<std::string> notice_lines(std::string_view message) {
    const std::string clean = clean_message(message);
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start <= clean.size() && !clean.empty()) {
        const std::size_t end = std::min(clean.find('\n', start), clean.size());
        if (end == start) lines.emplace_back();
        break_line(std::string_view(clean).substr(start, end - start), lines);
        start = end + 1;
    }
    return lines;
}

int notice_lines_max() {
    const Box area = work_area({0, 0});
    return std::max(3, (area.h * 2 / 3) / (line_height() + px(2)));
}

}  // namespace brindle::tk
