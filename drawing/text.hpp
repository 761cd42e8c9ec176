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

}  // namespace brindle
