#include "edit/bracketing.hpp"

#include <fmt/printf.h>

#include "corpus/grammar.hpp"

namespace brindle {

std::string check_tree_in_editor(std::string_view text) {
    int line = 1;
    long depth = 0;
    bool closed = false;  // a bracketed group has ended
    for (const char c : text) {
        if (c == '\n') {
            ++line;
        } else if (c == '(') {
            ++depth;
            if (closed)
                return fmt::sprintf("Error on line %d:\nUnexpected start of new tree ('%c')", line, '(');
        } else if (c == ')') {
            --depth;
            if (depth == 0) closed = true;
            if (depth < 0) return fmt::sprintf("Error on line %d:\nUnmatched '%c'", line, ')');
        }
    }
    return depth == 0 ? "" : fmt::sprintf("Error on or before line %d:\nUnmatched '%c'", line, '(');
}

namespace {

// For parse_node: looks at each token and makes nothing of it.
struct TokenCheck {
    const char *end;

    const char *skip(const char *p) const { return skip_blanks(p, end); }
    const char *add(const char *p, bool bracketed, bool &has_word, SyntaxFault &fault) const {
        Token token;
        fault = parse_token(p, end, bracketed, BracketedWords::refused, token);
        has_word = !token.word.empty();
        return token.end;
    }
    void open() const {}
    void close() const {}
    void leaf() const {}
};

const char *words_for(FaultKind kind) {
    switch (kind) {
        case FaultKind::no_tag:
            return "Semantic tag expected";
        case FaultKind::no_word:
            return "Lexical item expected";
        case FaultKind::open_in_category:
            return "Unexpected '('";
        case FaultKind::unbalanced_tag:
            return "Unmatched '('";
        case FaultKind::two_tags:
            return "Two semantic tags on one node.";
        case FaultKind::category_too_long:
        case FaultKind::tag_too_long:
        case FaultKind::word_too_long:
            return "Label too long";
        case FaultKind::word_with_daughters:
            return "Lexical item on a node with daughters";
        case FaultKind::word_in_brackets:
            return "Terminal node starting with (";
        case FaultKind::no_category:
            return "Empty node encountered";
        default:
            return "Unexpected end of tree";
    }
}

}  // namespace

std::string check_readtree(std::string_view text) {
    const char *p = text.data(), *const end = p + text.size();
    TokenCheck check{end};
    const SyntaxFault fault = parse_node(p, end, check);
    if (fault.kind == FaultKind::none) return "";
    const int line = place_in(text, fault.at).line;
    if (fault.kind == FaultKind::two_words)
        return fmt::sprintf("Two lexical items on one node, line %d", line);
    return fmt::sprintf("Error on line %d:\n%s", line, words_for(fault.kind));
}

std::string check_bracketing(std::string_view text) {
    std::string message = check_tree_in_editor(text);
    return message.empty() ? check_readtree(text) : message;
}

}  // namespace brindle
