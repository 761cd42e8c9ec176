#include "base/text.hpp"

#include <langinfo.h>
#include <algorithm>
#include <cctype>
#include <clocale>
#include <cstdlib>
#include <cstring>
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

// Decodes one well-formed multi-byte UTF-8 character; its length, or 0 if it is not well-formed.
std::size_t decode_utf8(const char *p, const char *end, char32_t &character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(p[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0xc2 ? 0 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : lead < 0xf5 ? 4 : 0;
    if (length == 0 || static_cast<std::size_t>(end - p) < length) return 0;
    char32_t c = lead & (0xffu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0) != 0x80) return 0;
        c = c << 6 | (byte(i) & 0x3fu);
    }
    static constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < least[length] || c > 0x10ffff || (c >= 0xd800 && c < 0xe000)) return 0;
    character = c;
    return length;
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
