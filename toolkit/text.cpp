#include "toolkit/text.hpp"

#include <langinfo.h>

#include <clocale>
#include <cstring>
#include <cwchar>
#include <map>

namespace brindle::tk {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;
// A byte b that is no character is shown as the private character ESCAPED + b.
constexpr char32_t ESCAPED = 0x10FF00;

bool is_escape(char32_t c) {
    return c >= ESCAPED + 0x80 && c <= ESCAPED + 0xFF;
}

void put_utf8(std::string &out, char32_t c) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

struct Decoded {
    char32_t code = 0;
    std::size_t length = 0;  // 0: the bytes are no character
};

std::size_t sequence_length(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

Decoded decode_utf8(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = sequence_length(lead);
    if (length <= 1) return {lead, length};
    if (text.size() < length) return {};
    char32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) return {};
        code = (code << 6) | (byte & 0x3F);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return overlong || surrogate || code > 0x10FFFF ? Decoded{} : Decoded{code, length};
}

// What the single bytes of an 8-bit locale mean, both ways.
struct ByteTable {
    char32_t code[256] = {};  // 0: nothing
    std::map<char32_t, char> byte;
};

ByteTable make_byte_table() {
    ByteTable table;
    for (int b = 0; b < 256; ++b) {
        const char byte = static_cast<char>(b);
        wchar_t wide = 0;
        std::mbstate_t state{};
        const bool ascii = b < 0x80;
        const bool known = !ascii && std::mbrtowc(&wide, &byte, 1, &state) == 1 && wide >= 0xA0;
        table.code[b] = ascii ? static_cast<char32_t>(b) : known ? static_cast<char32_t>(wide) : 0;
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

bool locale_is_utf8() {
    return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
}

Decoded decode_locale(std::string_view text, bool utf8) {
    if (utf8) return decode_utf8(text);
    const char32_t code = byte_table().code[static_cast<unsigned char>(text[0])];
    const bool ok = code != 0 || text[0] == 0;
    return {code, ok ? 1U : 0U};
}

void put_locale(std::string &out, char32_t code, std::string_view bytes, bool utf8) {
    if (utf8) {
        out += bytes;
        return;
    }
    const auto &known = byte_table().byte;
    const auto found = known.find(code);
    out += found == known.end() ? '?' : found->second;
}

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

std::string to_display(std::string_view locale_text) {
    std::string out;
    out.reserve(locale_text.size());
    const bool utf8 = locale_is_utf8();
    while (!locale_text.empty()) {
        const auto [code, length] = decode_locale(locale_text, utf8);
        if (length > 0 && !is_escape(code)) {
            put_utf8(out, code);
            locale_text.remove_prefix(length);
        } else {
            put_utf8(out, ESCAPED + static_cast<unsigned char>(locale_text[0]));
            locale_text.remove_prefix(1);
        }
    }
    return out;
}

std::string from_display(std::string_view utf8_text) {
    std::string out;
    out.reserve(utf8_text.size());
    const bool utf8 = locale_is_utf8();
    while (!utf8_text.empty()) {
        const auto [code, length] = decode_utf8(utf8_text);
        const std::size_t taken = length ? length : 1;
        if (is_escape(code)) {
            out += static_cast<char>(code - ESCAPED);
        } else {
            put_locale(out, code, utf8_text.substr(0, taken), utf8);
        }
        utf8_text.remove_prefix(taken);
    }
    return out;
}

char32_t next_character(std::string_view &locale_text) {
    const auto [code, length] = decode_locale(locale_text, locale_is_utf8());
    locale_text.remove_prefix(length ? length : 1);
    return length && !is_escape(code) ? code : REPLACEMENT;
}

std::size_t unfinished_tail(std::string_view locale_text) {
    if (!locale_is_utf8()) return 0;
    for (std::size_t tail = 1; tail <= 3 && tail <= locale_text.size(); ++tail) {
        const auto byte = static_cast<unsigned char>(locale_text[locale_text.size() - tail]);
        if ((byte & 0xC0) != 0x80) return sequence_length(byte) > tail ? tail : 0;
    }
    return 0;
}

std::string clean_message(std::string_view message) {
    std::string out;
    int empty_lines = 0;  // before the line in hand
    while (true) {
        const std::size_t end = message.find('\n');
        bool only_controls = false;
        const std::string line = clean_line(message.substr(0, end), only_controls);
        if (!line.empty()) {
            if (!out.empty()) out.append(static_cast<std::size_t>(empty_lines) + 1, '\n');
            out += line;
            empty_lines = 0;
        } else if (!only_controls) {
            ++empty_lines;
        }
        if (end == std::string_view::npos) return out;
        message.remove_prefix(end + 1);
    }
}

}  // namespace brindle::tk
