#include "base/text.hpp"

#include <langinfo.h>
#include <algorithm>
#include <cctype>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <cwctype>

#include <fmt/format.h>

namespace brindle {
namespace {

TextMode mode = TextMode::utf8;
bool met_high_byte = false;

bool environment_sets_ctype() {
    for (const char *name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char *value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

// Of a multi-byte UTF-8 character, as its first byte says; 0: none begins with it.
std::size_t utf8_length(unsigned lead) {
    return lead < 0xc2 ? 0 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : lead < 0xf5 ? 4 : 0;
}

bool is_inside_utf8(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

// Decodes one well-formed multi-byte UTF-8 character; its length, or 0 if it is not well-formed.
std::size_t decode_utf8(const char *p, const char *end, char32_t &character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(p[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = utf8_length(lead);
    if (length == 0 || static_cast<std::size_t>(end - p) < length) return 0;
    char32_t c = lead & (0xffu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!is_inside_utf8(p[i])) return 0;
        c = c << 6 | (byte(i) & 0x3fu);
    }
    static constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < least[length] || c > 0x10ffff || (c >= 0xd800 && c < 0xe000)) return 0;
    character = c;
    return length;
}

// One line of a message, cleaned; only_controls tells whether it held control characters and nothing else.
std::string clean_line(std::string_view line, bool &only_controls) {
    const auto is_control = [](char c) {
        return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f;
    };
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

void set_text_locale() {
    if (!environment_sets_ctype() || !std::setlocale(LC_CTYPE, "")) std::setlocale(LC_CTYPE, "C.UTF-8");
    const std::string codeset = nl_langinfo(CODESET);
    if (codeset == "UTF-8")
        mode = TextMode::utf8;
    else
        mode = codeset == "ANSI_X3.4-1968" ? TextMode::ascii : TextMode::eight_bit;
}

TextMode text_mode() {
    return mode;
}

void set_text_mode(TextMode new_mode) {
    mode = new_mode;
    met_high_byte = false;
}

std::size_t graphic_length(const char *p, const char *end) {
    const auto byte = static_cast<unsigned char>(*p);
    if (byte < 0x7f) return byte > 0x20 ? 1 : 0;
    if (byte == 0x7f) return 0;
    if (mode == TextMode::eight_bit) return std::isgraph(byte) ? 1 : 0;
    if (mode == TextMode::ascii) {
        met_high_byte = true;
        return 0;
    }
    char32_t character = 0;
    const std::size_t length = decode_utf8(p, end, character);
    return length && std::iswgraph(static_cast<std::wint_t>(character)) ? length : 0;
}

bool take_high_byte_warning() {
    const bool met = met_high_byte;
    met_high_byte = false;
    return met;
}

std::string visible(std::string_view text) {
    const char *p = text.data(), *const end = p + text.size();
    std::string shown;
    while (p != end) {
        const std::size_t length = *p == ' ' || *p == '\n' ? 1 : graphic_length(p, end);
        if (length > 0)
            shown.append(p, length);
        else if (*p == '\t')
            shown += "\\t";
        else
            shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(*p));
        p += std::max<std::size_t>(length, 1);
    }
    return shown;
}

bool locale_is_utf8() {
    return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
}

Character first_character(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte < 0x80) return {byte, 1};
    if (locale_is_utf8()) {
        Character character;
        character.length = decode_utf8(text.data(), text.data() + text.size(), character.code);
        return character;
    }
    wchar_t code = 0;
    std::mbstate_t state{};
    const std::size_t length = std::mbrtowc(&code, text.data(), text.size(), &state);
    const bool known = length <= text.size() && code >= 0xa0;
    return known ? Character{static_cast<char32_t>(code), length} : Character{};
}

std::size_t unfinished_tail(std::string_view text) {
    if (!locale_is_utf8()) return 0;
    for (std::size_t tail = 1; tail <= 3 && tail <= text.size(); ++tail) {
        const char byte = text[text.size() - tail];
        if (!is_inside_utf8(byte)) return utf8_length(static_cast<unsigned char>(byte)) > tail ? tail : 0;
    }
    return 0;
}

std::string_view beginning(std::string_view text, std::size_t size) {
    if (size >= text.size()) return text;
    if (mode == TextMode::utf8)
        while (size > 0 && is_inside_utf8(text[size])) --size;
    return text.substr(0, size);
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

void space2underscore(std::string &text) {
    for (char &c : text)
        if (c == ' ') c = '_';
}

bool substr(std::string_view text, std::string_view string) {
    return string.find(text) != std::string_view::npos;
}

std::string sub_string_replace(std::string_view string, std::string_view needle,
                               std::string_view replacement) {
    std::string result;
    std::size_t from = 0;
    while (!needle.empty()) {
        const std::size_t at = string.find(needle, from);
        if (at == std::string_view::npos) break;
        result.append(string, from, at - from).append(replacement);
        from = at + needle.size();
    }
    return result.append(string.substr(from));
}

}  // namespace brindle
