#pragma once
// Labels and messages are in the locale's encoding, as files hold them; what is drawn and typed is Unicode.
#include <QString>

#include <string>
#include <string_view>

namespace brindle {

// Locale text as Qt takes it. Bytes that mean nothing in the locale become private characters, from which
// to_locale makes the same bytes again. Never fails.
QString to_qstring(std::string_view locale_text);

// The same for what is only looked at: such bytes become replacement signs.
QString to_shown(std::string_view locale_text);

// What was typed, in the locale's encoding. Characters that the locale lacks become '?'.
std::string to_locale(const QString &text);

// How many bytes at the end of a locale text begin a character whose rest is missing.
std::size_t unfinished_tail(std::string_view locale_text);

// A message fit to be shown: ESC and other control characters go, tabs are blanks, blanks at line starts and
// ends go, lines that held nothing but control characters go, and so do empty first and last lines.
std::string clean_message(std::string_view message);

}  // namespace brindle
