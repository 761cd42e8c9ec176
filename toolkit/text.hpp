#pragma once
// The two encodings of a text. All texts that cross the toolkit's interface, both ways, are in the locale's
// encoding, as files hold them; inside, widgets and drawing use UTF-8. Users of the toolkit seldom need these
// functions.
#include <string>
#include <string_view>

namespace brindle::tk {

// Locale text as UTF-8. Bytes that mean nothing in the locale become private characters, which are drawn as a
// replacement sign and from which from_display makes the same bytes again. Never fails.
std::string to_display(std::string_view locale_text);

// UTF-8 as it came out of a widget, in the locale's encoding. Characters the locale lacks become '?'.
std::string from_display(std::string_view utf8);

// Takes the first character off the front of a locale text (not empty): its Unicode number, 0xFFFD for a byte
// that means nothing in the locale.
char32_t next_character(std::string_view &locale_text);

// How many bytes at the end of a locale text begin a character whose rest is missing.
std::size_t unfinished_tail(std::string_view locale_text);

// Splits a message into lines fit to be shown: ESC and other control characters go, tabs are blanks, blanks
// at line starts and ends go, lines that held nothing but control characters go, and so do empty first and
// last lines.
std::string clean_message(std::string_view message);

}  // namespace brindle::tk
