#pragma once
// Which bytes of a text are graphic, as the locale says, and small helpers on texts.
#include <cstddef>
#include <string>
#include <string_view>

namespace brindle {

// Sets LC_CTYPE from the environment, or to C.UTF-8 when the environment sets nothing; numbers stay in the C
// locale. Every program calls it first.
void set_text_locale();

// How bytes above 126 are read: as UTF-8, by the 8-bit locale's isgraph, or as blanks (the C locale).
enum class TextMode { utf8, eight_bit, ascii };
TextMode text_mode();
// Overrides the locale's mode (for tests).
void set_text_mode(TextMode mode);

// The number of bytes (1 to 4) of the graphic character that begins at p, before end; 0 if the byte at p is a
// blank. In a UTF-8 locale a well-formed multi-byte graphic character is graphic and any stray byte is a
// blank.
std::size_t graphic_length(const char *p, const char *end);

// True once graphic_length has met a byte above 126 in the C locale since the last call; the reader warns
// then.
bool take_high_byte_warning();

// The text for a terminal: what is neither graphic nor a space or newline is written as \t or \x1b.
std::string visible(std::string_view text);

// Whether the locale's characters are UTF-8.
bool locale_is_utf8();

// The character that a text begins with, as the locale reads it, and how many bytes it takes. Without a
// length the first byte is no character, or a control character of an 8-bit locale. REQUIRES: the text is not
// empty.
struct Character {
    char32_t code = 0;
    std::size_t length = 0;
};
Character first_character(std::string_view text);

// How many bytes at the end of a text begin a character whose rest is missing.
std::size_t unfinished_tail(std::string_view text);

// The longest beginning of the text of at most `size` bytes that cuts no character in two.
std::string_view beginning(std::string_view text, std::size_t size);

// A message fit to be shown: ESC and other control characters go, tabs are blanks, blanks at line starts and
// ends go, lines that held nothing but control characters go, and so do empty first and last lines.
std::string clean_message(std::string_view message);

// Every space of the text becomes '_'.
void space2underscore(std::string &text);

// True if `text` occurs in `string`.
bool substr(std::string_view text, std::string_view string);

// A copy of the string in which every occurrence of the needle, found left to right without overlap, is
// replaced. An empty needle gives the string as it is.
std::string sub_string_replace(std::string_view string, std::string_view needle,
                               std::string_view replacement);

}  // namespace brindle
