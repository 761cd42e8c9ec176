#pragma once
// Text that comes faster than it can be shown.
#include <string>
#include <string_view>

namespace brindle {

// Keeps what has not been shown yet, in the locale's encoding. Of a flood the last megabyte stays: nobody
// could have read the rest.
class Backlog {
  public:
    void append(std::string_view text);
    // Takes the beginning off: at most 64 KB, and whole characters. "": nothing, or not yet a whole
    // character.
    std::string take();
    std::size_t size() const { return text_.size(); }

  private:
    std::string text_;
};

// The text with lines of at most 2,000 characters, as longer ones take long to lay out, and without zero
// bytes. It goes on in that column, which is left at its end.
std::string with_bearable_lines(std::string_view text, std::size_t &column);

}  // namespace brindle
