#include "corpus/grammar.hpp"

#include <algorithm>

namespace brindle {
namespace {

enum class Mode { category, tag, word };

FaultKind missing(Mode mode) {
    return mode == Mode::word  ? FaultKind::no_word
           : mode == Mode::tag ? FaultKind::no_tag
                               : FaultKind::no_category;
}

class TokenParser {
  public:
    TokenParser(const char *p, const char *end) : p_(p), end_(end) {}

    SyntaxFault parse(bool bracketed, BracketedWords words, Token &token) {
        refuses_words_ = bracketed && words == BracketedWords::refused;
        const Mode mode = bracketed || (*p_ != START_SEM_TAG && *p_ != START_LEX_TAG) ? Mode::category
                          : *p_ == START_SEM_TAG                                      ? Mode::tag
                                                                                      : Mode::word;
        if (!label(mode, MAXSYN - 1, FaultKind::category_too_long, token.category)) return fault_;
        refuses_words_ = false;
        while (*p_ == START_SEM_TAG || *p_ == START_LEX_TAG)
            if (!annotation(token)) return fault_;
        token.end = p_;
        return {};
    }

  private:
    bool annotation(Token &token) {
        const bool is_tag = *p_ == START_SEM_TAG;
        std::string_view &text = is_tag ? token.tag : token.word;
        if (!text.empty()) return fail(is_tag ? FaultKind::two_tags : FaultKind::two_words);
        ++p_;
        return is_tag ? label(Mode::tag, MAXSEM - 1, FaultKind::tag_too_long, text)
                      : label(Mode::word, MAXSYN - 1, FaultKind::word_too_long, text);
    }

    // One label; the character that ends it stays. Of more than `most` bytes: that fault.
    bool label(Mode mode, std::size_t most, FaultKind too_long, std::string_view &text) {
        const char *const start = p_;
        long nesting = 0;
        for (; p_ != end_; ++p_) {
            const CharClass c = class_of(*p_);
            if (c == GRAPHIC || (c == BAR && mode == Mode::tag) || (c == SLASH && mode == Mode::word))
                continue;
            if (c == HIGH) {
                const std::size_t length = graphic_length(p_, end_);
                if (length == 0) break;
                p_ += length - 1;
            } else if (c == OPEN && mode == Mode::tag) {
                ++nesting;
            } else if (c == CLOSE && nesting > 0) {
                --nesting;
            } else {
                if (c == OPEN && p_ == start) return fail(FaultKind::open_in_category);
                if (c == SLASH && refuses_words_) return fail(FaultKind::word_in_brackets);
                break;
            }
        }
        text = {start, static_cast<std::size_t>(p_ - start)};
        if (p_ == end_) return fail(FaultKind::end_in_label);
        if (nesting > 0) return fail(FaultKind::unbalanced_tag);
        if (text.empty()) return fail(missing(mode));
        return text.size() <= most || fail(too_long);
    }

    bool fail(FaultKind kind) {
        fault_ = {kind, p_};
        return false;
    }

    const char *p_;
    const char *end_;
    bool refuses_words_ = false;
    SyntaxFault fault_;
};

}  // namespace

SyntaxFault parse_token(const char *p, const char *end, bool bracketed, BracketedWords words, Token &token) {
    return TokenParser(p, end).parse(bracketed, words, token);
}

TextPlace place_in(std::string_view text, const char *at) {
    const char *const start = text.data();
    const auto line = 1 + std::count(start, at, '\n');
    const char *line_start = at;
    while (line_start != start && line_start[-1] != '\n') --line_start;
    return {static_cast<int>(line), static_cast<int>(at - line_start) + 1};
}

}  // namespace brindle
