#pragma once
// The grammar of the tree text: how a node and its labels are written. The corpus reader, the syntax editor
// and whatever else takes bracketings parse with it; each words its own messages from the fault that it
// returns.
//
//     node     = "(" token " " node* ")"      a node with daughters (or with none, or with a word)
//              | token                        a bare node, ended by a blank or a bracket
//     token    = category ["|" tag] ["/" word]   the two in either order, nothing between them
//
// Brackets inside a tag must balance. The category of a bare node may begin with "|" or "/", which then
// belongs to it. Blank is whatever is not graphic in the locale (base/text.hpp).
#include <array>
#include <cstdint>
#include <string_view>

#include "base/limits.hpp"
#include "base/text.hpp"

namespace brindle {

// The character classes of the tree text, by table, so that most bytes are decided with one look.
enum CharClass : std::uint8_t {
    BLANK = 0,
    GRAPHIC = 1,
    OPEN = 2,
    CLOSE = 3,
    BAR = 4,
    SLASH = 5,
    HIGH = 6,  // above 126: ask graphic_length
};

inline constexpr std::array<std::uint8_t, 256> char_class = [] {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned c = 0x21; c < 0x7f; ++c) classes[c] = GRAPHIC;
    for (unsigned c = 0x80; c < 0x100; ++c) classes[c] = HIGH;
    classes['('] = OPEN;
    classes[')'] = CLOSE;
    classes['|'] = BAR;
    classes['/'] = SLASH;
    return classes;
}();

inline CharClass class_of(char c) {
    return static_cast<CharClass>(char_class[static_cast<unsigned char>(c)]);
}

enum class FaultKind {
    none,
    end_of_text,   // before the node was complete
    end_in_label,  // a label that nothing ends
    no_category,
    no_tag,            // nothing behind "|"
    no_word,           // nothing behind "/"
    open_in_category,  // "(" where a category or word should begin
    unbalanced_tag,    // a "(" in a tag that is not closed in it
    two_tags,
    two_words,
    category_too_long,
    tag_too_long,
    word_too_long,
    word_with_daughters,  // a node with a word and daughters
    word_in_brackets,     // a bracketed node whose category runs into a word, where that is refused
};

struct SyntaxFault {
    FaultKind kind = FaultKind::none;
    const char *at = nullptr;  // where the parser stood
};

// The line and the column of a place in a text, both from 1; columns count bytes.
struct TextPlace {
    int line;
    int column;
};
TextPlace place_in(std::string_view text, const char *at);

// What a node has been written with.
struct Token {
    std::string_view category;
    std::string_view tag;   // empty: none
    std::string_view word;  // empty: none
    const char *end = nullptr;
};

// Whether bracketed nodes may have words: "(NN/cat)".
enum class BracketedWords { allowed, refused };

// Reads the token at p, which is neither blank nor the text's end. A bracket before it has been passed.
SyntaxFault parse_token(const char *p, const char *end, bool bracketed, BracketedWords words, Token &token);

// The first graphic character at or behind p, or the end.
inline const char *skip_blanks(const char *p, const char *end) {
    while (p != end) {
        const CharClass c = class_of(*p);
        if (c != BLANK && (c != HIGH || graphic_length(p, end) > 0)) break;
        ++p;
    }
    return p;
}

// Reads one node with everything below it from p on, and leaves p behind it. The builder is told:
//     const char *skip(const char *p)
//                     returns the first byte at or behind p that is not blank, or the end
//     const char *add(const char *p, bool bracketed, bool &has_word, SyntaxFault &fault)
//                     reads the token at p and adds a node below the open one (the first is the top);
//                     returns the token's end, or null after a fault
//     void open()     the node added last gets daughters, or might
//     void close()    the open node is complete
//     void leaf()     the node added last is complete
template <class Builder>
SyntaxFault parse_node(const char *&p, const char *end, Builder &builder) {
    long open = 0;  // nodes being read
    bool mother_has_word = false;
    while (true) {
        p = builder.skip(p);
        if (p == end) return {FaultKind::end_of_text, p};
        if (*p == ')') {
            if (open == 0) return {FaultKind::no_category, p};
            ++p;
            builder.close();
            mother_has_word = false;
            if (--open == 0) return {};
            continue;
        }
        if (mother_has_word) return {FaultKind::word_with_daughters, p};
        const bool bracketed = *p == '(';
        if (bracketed) p = builder.skip(p + 1);
        if (p == end) return {FaultKind::end_of_text, p};
        bool has_word = false;
        SyntaxFault fault;
        p = builder.add(p, bracketed, has_word, fault);
        if (!p) return fault;
        const char ending = *p;
        if (ending != '(') ++p;
        if (bracketed && ending != ')') {
            builder.open();
            ++open;
            mother_has_word = has_word;
            continue;
        }
        builder.leaf();
        if (open == 0) return {};
        if (bracketed || ending != ')') continue;
        builder.close();  // the bracket behind a bare node is its mother's
        if (--open == 0) return {};
    }
}

}  // namespace brindle
