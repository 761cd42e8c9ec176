#include "drawing/text.hpp"

#include <langinfo.h>

#include <QList>

#include <clocale>
#include <cstring>
#include <cwchar>
#include <map>

namespace brindle {

namespace {

// A byte b that is no character is the private character escaped + b.
constexpr char32_t escaped = 0x10FF00;
constexpr char32_t replacement = 0xFFFD;
constexpr char16_t escape_lead = 0xDBFF;  // the first half of all of these in UTF-16

bool is_escape(char32_t c) {
    return c >= escaped + 0x80 && c <= escaped + 0xFF;
}

void append(QString &out, char32_t c) {
    out += QChar::fromUcs4(c);
}

void append_escaped(QString &out, char byte) {
    append(out, escaped + static_cast<unsigned char>(byte));
}

bool locale_is_utf8() {
    return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
}

// ---------------------------------------------------------------- UTF-8

// As the first byte says; 0: no character begins with it.
std::size_t sequence_length(char first) {
    const auto lead = static_cast<unsigned char>(first);
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

// Whether the bytes are UTF-8 without a private character that stands for a byte (F4 8F BE .. or F4 8F BF
// ..).
bool is_plain_utf8(std::string_view bytes) {
    return QByteArrayView(bytes).isValidUtf8() && bytes.find("\xF4\x8F\xBE") == bytes.npos &&
           bytes.find("\xF4\x8F\xBF") == bytes.npos;
}

QString from_utf8(std::string_view bytes) {
    if (is_plain_utf8(bytes)) return QString::fromUtf8(bytes);
    QString out;
    while (!bytes.empty()) {
        const std::string_view character = bytes.substr(0, sequence_length(bytes.front()));
        if (!character.empty() && is_plain_utf8(character)) {
            out += QString::fromUtf8(character);
            bytes.remove_prefix(character.size());
        } else {
            append_escaped(out, bytes.front());
            bytes.remove_prefix(1);
        }
    }
    return out;
}

std::string to_utf8(const QString &text) {
    if (!text.contains(QChar(escape_lead))) return text.toStdString();
    std::string out;
    for (const char32_t c : text.toUcs4()) {
        if (is_escape(c))
            out += static_cast<char>(c - escaped);
        else
            out += QString::fromUcs4(&c, 1).toStdString();
    }
    return out;
}

// ---------------------------------------------------------------- 8-bit locales

// What the single bytes of an 8-bit locale mean, both ways.
struct ByteTable {
    char32_t code[256] = {};  // 0 above ASCII: nothing
    std::map<char32_t, char> byte;
};

ByteTable make_byte_table() {
    ByteTable table;
    for (int b = 0; b < 256; ++b) {
        const char byte = static_cast<char>(b);
        wchar_t wide = 0;
        std::mbstate_t state{};
        if (b < 0x80)
            table.code[b] = static_cast<char32_t>(b);
        else if (std::mbrtowc(&wide, &byte, 1, &state) == 1 && wide >= 0xA0)
            table.code[b] = static_cast<char32_t>(wide);
        if (table.code[b]) table.byte.emplace(table.code[b], byte);
    }
    return table;
}

const ByteTable &byte_table() {
    static std::string made_for;
    static ByteTable table;
    const char *locale = std::setlocale(LC_CTYPE, nullptr);
    if (made_for != locale) {
        made_for = locale;
        table = make_byte_table();
    }
    return table;
}

QString from_bytes(std::string_view bytes) {
    const ByteTable &table = byte_table();
    QString out;
    for (const char byte : bytes) {
        const char32_t c = table.code[static_cast<unsigned char>(byte)];
        if (c != 0 || byte == 0)
            append(out, c);
        else
            append_escaped(out, byte);
    }
    return out;
}

std::string to_bytes(const QString &text) {
    const ByteTable &table = byte_table();
    std::string out;
    for (const char32_t c : text.toUcs4()) {
        const auto found = table.byte.find(c);
        if (is_escape(c))
            out += static_cast<char>(c - escaped);
        else
            out += found == table.byte.end() ? '?' : found->second;
    }
    return out;
}

// ---------------------------------------------------------------- messages

bool is_control(char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

// One line of a message, cleaned; only_controls tells whether it held control characters and nothing else.
std::string clean_line(std::string_view line, bool &only_controls) {
    std::string clean;
    bool controls = false;
    for (const char c : line) {
        if (is_control(c)) {
            controls = true;
        } else if (const char shown = c == '\t' ? ' ' : c; shown != ' ' || !clean.empty()) {
            clean += shown;
        }
    }
    while (!clean.empty() && clean.back() == ' ') clean.pop_back();
    only_controls = controls && clean.empty();
    return clean;
}

}  // namespace

QString to_qstring(std::string_view locale_text) {
    return locale_is_utf8() ? from_utf8(locale_text) : from_bytes(locale_text);
}

QString to_shown(std::string_view locale_text) {
    QString text = to_qstring(locale_text);
    if (!text.contains(QChar(escape_lead))) return text;
    QString shown;
    for (const char32_t c : text.toUcs4()) append(shown, is_escape(c) ? replacement : c);
    return shown;
}

std::string to_locale(const QString &text) {
    return locale_is_utf8() ? to_utf8(text) : to_bytes(text);
}

std::size_t unfinished_tail(std::string_view locale_text) {
    if (!locale_is_utf8()) return 0;
    for (std::size_t tail = 1; tail <= 3 && tail <= locale_text.size(); ++tail) {
        const char byte = locale_text[locale_text.size() - tail];
        if ((byte & 0xC0) != 0x80) return sequence_length(byte) > tail ? tail : 0;
    }
    return 0;
}

std::string clean_message(std::string_view message) {
    std::string out;
    std::size_t empty_lines = 0;  // before the line in hand
    while (true) {
        const std::size_t end = message.find('\n');
        bool only_controls = false;
        const std::string line = clean_line(message.substr(0, end), only_controls);
        if (!line.empty()) {
            if (!out.empty()) out.append(empty_lines + 1, '\n');
            out += line;
            empty_lines = 0;
        } else if (!only_controls) {
            ++empty_lines;
        }
        if (end == message.npos) return out;
        message.remove_prefix(end + 1);
    }
}

}  // namespace brindle
