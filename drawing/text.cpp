#include "drawing/text.hpp"

#include <QList>

#include <climits>
#include <cwchar>

#include "base/text.hpp"

namespace brindle {
namespace {

// A byte b that is no character is the private character escaped + b.
constexpr char32_t escaped = 0x10FF00;
constexpr char16_t escape_lead = 0xDBFF;  // the first half of all of these in UTF-16

bool is_escape(char32_t c) {
    return c >= escaped + 0x80 && c <= escaped + 0xFF;
}

// Nearly every text, which Qt converts at once: UTF-8 without a private character that stands for a byte
// (F4 8F BE .. or F4 8F BF ..).
bool is_plain_utf8(std::string_view bytes) {
    return QByteArrayView(bytes).isValidUtf8() && bytes.find("\xF4\x8F\xBE") == bytes.npos &&
           bytes.find("\xF4\x8F\xBF") == bytes.npos;
}

std::string encoded(char32_t c) {
    if (is_escape(c)) return {static_cast<char>(c - escaped)};
    char bytes[MB_LEN_MAX];
    std::mbstate_t state{};
    const std::size_t size = std::wcrtomb(bytes, static_cast<wchar_t>(c), &state);
    return size <= sizeof bytes ? std::string(bytes, size) : "?";
}

}  // namespace

QString to_qstring(std::string_view locale_text) {
    if (locale_is_utf8() && is_plain_utf8(locale_text)) return QString::fromUtf8(locale_text);
    QString out;
    while (!locale_text.empty()) {
        const Character character = first_character(locale_text);
        const bool known = character.length > 0 && !is_escape(character.code);
        const char32_t byte = escaped + static_cast<unsigned char>(locale_text.front());
        out += QChar::fromUcs4(known ? character.code : byte);
        locale_text.remove_prefix(known ? character.length : 1);
    }
    return out;
}

QString to_shown(std::string_view locale_text) {
    const QString text = to_qstring(locale_text);
    if (!text.contains(QChar(escape_lead))) return text;
    QString shown;
    for (const char32_t c : text.toUcs4())
        shown += QChar::fromUcs4(is_escape(c) ? char32_t{QChar::ReplacementCharacter} : c);
    return shown;
}

std::string to_locale(const QString &text) {
    if (locale_is_utf8() && !text.contains(QChar(escape_lead))) return text.toStdString();
    std::string out;
    for (const char32_t c : text.toUcs4()) out += encoded(c);
    return out;
}

}  // namespace brindle
