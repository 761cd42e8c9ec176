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

}  // namespace brindle
