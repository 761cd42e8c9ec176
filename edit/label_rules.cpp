#include "edit/label_rules.hpp"

#include <fmt/format.h>

#include "base/limits.hpp"
#include "base/text.hpp"

namespace brindle {

const std::string_view no_tag_mark_in_category =
    "You cannot use '|' in a syntactic tag; it is\n\x1b\n \t\t\t\tdefined as START_SEM_TAG in conventions";
const std::string_view no_word_mark_in_category =
    "You cannot use '/' in a syntactic tag; it is\n\x1b\n \t\t\t\tdefined as START_LEX_TAG in conventions";
const std::string_view no_word_mark_in_tag =
    "You cannot use '/' in a semantic tag; it is\n\x1b\n \t\t\t\tdefined as START_LEX_TAG in conventions";

namespace {

static_assert(START_SEM_TAG == '|' && START_LEX_TAG == '/', "the notices name these characters");

// Spaces apart, every character is graphic: a blank would end the label where it is read.
bool is_printable(std::string_view text) {
    const char *p = text.data();
    const char *const end = p + text.size();
    while (p != end) {
        const std::size_t length = *p == ' ' ? 1 : graphic_length(p, end);
        if (length == 0) return false;
        p += length;
    }
    return true;
}

// A bracket that closes more than was opened would end the tag where it is read.
bool brackets_balance(std::string_view text) {
    int open = 0;
    for (const char c : text) {
        open += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (open < 0) return false;
    }
    return open == 0;
}

std::optional<std::string> refuse_any(std::string_view text, std::string_view what, std::size_t most) {
    if (text.size() > most) return fmt::format("{} too long:\nit can hold {} bytes", what, most);
    if (!is_printable(text)) return fmt::format("{} with a character that cannot be printed", what);
    return std::nullopt;
}

}  // namespace

std::optional<std::string> refuse_tag(std::string_view text) {
    if (text.find(START_LEX_TAG) != text.npos) return std::string(no_word_mark_in_tag);
    if (!brackets_balance(text)) return "Brackets in a semantic tag must balance";
    return refuse_any(text, "Semantic tag", MAXSEM - 1);
}

std::optional<std::string> refuse_category(std::string_view text) {
    if (text.find(START_SEM_TAG) != text.npos) return std::string(no_tag_mark_in_category);
    if (text.find(START_LEX_TAG) != text.npos) return std::string(no_word_mark_in_category);
    if (text.find_first_of("()") != text.npos) return "Brackets cannot be used in a syntactic tag";
    return refuse_any(text, "Syntactic category", MAXSYN - 1);
}

}  // namespace brindle
