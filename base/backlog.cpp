#include "base/backlog.hpp"

#include <algorithm>

#include "base/text.hpp"

namespace brindle {
namespace {

constexpr std::size_t most = std::size_t{1} << 20;
constexpr std::size_t at_once = std::size_t{1} << 16;
constexpr std::size_t longest_line = 2000;

}  // namespace

// It begins with a whole line, unless that is far away.
void Backlog::append(std::string_view text) {
    text_ += text;
    if (text_.size() <= 2 * most) return;
    const std::size_t first = text_.size() - most;
    text_.erase(0, std::min(text_.find('\n', first), first + longest_line) + 1);
}

std::string Backlog::take() {
    std::string piece = text_.substr(0, at_once);
    piece.resize(piece.size() - unfinished_tail(piece));
    text_.erase(0, piece.size());
    return piece;
}

std::string with_bearable_lines(std::string_view text, std::size_t &column) {
    std::string shown;
    shown.reserve(text.size() + text.size() / longest_line);
    for (const char c : text) {
        if (c == '\0') continue;
        const bool goes_on = text_mode() == TextMode::utf8 && (c & 0xC0) == 0x80;
        if (column >= longest_line && c != '\n' && !goes_on) shown += '\n', column = 0;
        shown += c;
        column = c == '\n' ? 0 : column + !goes_on;
    }
    return shown;
}

}  // namespace brindle
