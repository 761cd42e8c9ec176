#include "corpus/readtrees.hpp"

#include <cstring>

#include <fmt/printf.h>

#include "corpus/characters.hpp"
#include "model/limits.hpp"
#include "model/text.hpp"
#include "model/traversal.hpp"
#include "stats/links.hpp"

namespace brindle {

int lines = 1;

namespace {

template <class... Values>
[[noreturn]] void fail(const char *format, Values... values) {
    throw FormatError{fmt::sprintf(format, values...), lines};
}

// Bytes of the graphic character at p; 0 for a blank.
std::size_t graphic_at(const char *p, const char *end) {
    const CharClass c = class_of(*p);
    return c == BLANK ? 0 : c == HIGH ? graphic_length(p, end) : 1;
}

// The end of the line at p: behind its newline, or the end of the text.
const char *past_line(const char *p, const char *end) {
    const void *newline = std::memchr(p, '\n', static_cast<std::size_t>(end - p));
    return newline ? static_cast<const char *>(newline) + 1 : end;
}

bool is_comment_line(const char *p, const char *end) {
    for (; p != end && *p != '\n'; ++p) {
        const CharClass c = class_of(*p);
        if (c == OPEN || c == CLOSE || *p == '*') return false;
        if (graphic_at(p, end)) return true;
    }
    return false;
}

}  // namespace

int trees(std::string_view text) {
    const char *p = text.data(), *const end = p + text.size();
    int count = 0, depth = 0, start_line = 1;
    lines = 1;
    const auto skip_comments = [&] {
        while (depth == 0 && p != end && is_comment_line(p, end)) {
            p = past_line(p, end);
            lines += p[-1] == '\n';
        }
    };
    skip_comments();
    while (p != end) {
        const char c = *p++;
        if (c == '(') {
            if (depth++ == 0) start_line = lines;
        } else if (c == '\n') {
            ++lines;
            skip_comments();
        } else if (c == ')') {
            if (--depth == 0) ++count;
            if (depth < 0)
                fail("Unmatched '%c', somewhere between line %d and line %d", ')', start_line, lines);
        }
    }
    if (depth != 0) fail("Unmatched '%c' in tree nr %d, starting at line %d", '(', count + 1, start_line);
    return count;
}

bool TreeReader::eat_until_open(bool &checked) {
    checked = false;
    while (p_ != end_) {
        if (*p_ == '(') return ++p_, true;
        if (*p_ == '*') {
            checked = true;
            ++p_;
        } else if (*p_ == '\n') {
            ++lines;
            ++p_;
        } else if (graphic_at(p_, end_)) {
            p_ = past_line(p_, end_);
            if (p_[-1] == '\n') ++lines;
        } else {
            ++p_;
        }
    }
    return false;
}

void TreeReader::skip_blanks() {
    for (; p_ != end_ && !graphic_at(p_, end_); ++p_)
        if (*p_ == '\n') ++lines;
    if (p_ == end_) fail("Unexpected end of file");
}

void TreeReader::no_label(Mode mode) {
    fail(mode == Mode::word  ? "Lexical item expected in line %d"
         : mode == Mode::tag ? "Semantic tag expected in line %d"
                             : "Empty node encountered in line %d",
         lines);
}

// Collects a label; the character that ends it stays in the input. `too_long` is the message for one of more
// than `most` bytes.
std::string_view TreeReader::readlabel(Mode mode, const char *too_long, std::size_t most) {
    const char *const start = p_;
    int nesting = 0;
    for (; p_ != end_; ++p_) {
        switch (class_of(*p_)) {
            case GRAPHIC:
                continue;
            case HIGH:
                if (const std::size_t length = graphic_length(p_, end_)) {
                    p_ += length - 1;
                    continue;
                }
                break;
            case OPEN:
                if (mode == Mode::tag) {
                    ++nesting;
                    continue;
                }
                if (p_ == start) fail("Unexpected '%c' in line %d", '(', lines);
                break;
            case CLOSE:
                if (nesting > 0) {
                    --nesting;
                    continue;
                }
                break;
            case BAR:
                if (mode == Mode::tag) continue;
                break;
            case SLASH:
                if (mode == Mode::word) continue;
                break;
            case BLANK:
                break;
        }
        break;
    }
    const std::string_view text(start, static_cast<std::size_t>(p_ - start));
    if (p_ == end_) fail("Unexpected end of file on line %d", lines);
    if (nesting > 0) fail("Unmatched '%c' in semantic tag, line %d", '(', lines);
    if (text.empty()) no_label(mode);
    if (text.size() > most) fail(too_long, lines);
    return text;
}

// The category of a bracketed node is read in category mode, that of a bare one in the mode that its own
// first character names (the character then belongs to it).
std::string_view TreeReader::category(bool bracketed) {
    Mode mode = Mode::category;
    if (bracketed)
        skip_blanks();
    else if (*p_ == START_SEM_TAG)
        mode = Mode::tag;
    else if (*p_ == START_LEX_TAG)
        mode = Mode::word;
    return readlabel(mode, "Syntactic category too long, line %d", MAXSYN - 1);
}

// Reads the node's tag and word. Result: the node is complete (else its daughters follow). `closes_mother`
// says whether the ")" that ended a bare node closes its mother too.
bool TreeReader::annotations(Node *node, bool bracketed, bool &closes_mother, bool &has_word) {
    bool has_tag = false;
    closes_mother = has_word = false;
    while (true) {
        if (p_ == end_) fail("Unexpected end of file");
        const char c = *p_;
        if (c == START_SEM_TAG) {
            ++p_;
            if (has_tag) fail("Two semantic tags on one node, line %d", lines);
            has_tag = true;
            room_->labels.emplace_back(readlabel(Mode::tag, "Semantic tag too long, line %d", MAXSEM - 1),
                                       &node->sem);
        } else if (c == START_LEX_TAG) {
            ++p_;
            if (has_word) fail("Two lexical items on one node, line %d", lines);
            has_word = true;
            room_->labels.emplace_back(readlabel(Mode::word, "Lexical item too long, line %d", MAXSYN - 1),
                                       &node->lex);
        } else if (c == ')') {
            ++p_;
            closes_mother = !bracketed;
            return true;
        } else if (c == '(') {
            return !bracketed;
        } else {
            if (c == '\n') ++lines;
            ++p_;
            return !bracketed;
        }
    }
}

namespace {

// A new node behind `left` under `mother`; null `left`: the first daughter.
Node *add_daughter(Node *mother, Node *left) {
    Node *node = new_node();
    node->mother = mother;
    (left ? left->sister : mother->dtrs) = node;
    node->position = ++mother->nr_of_dtrs;
    return node;
}

// Frees what has been read of a tree with a format error. Nothing of it is stored yet.
struct Unfinished {
    Node *root;
    ~Unfinished() {
        if (root) do_with(root, release_node);
    }
};

}  // namespace

Node *TreeReader::read_tree() {
    Unfinished unfinished{new_node()};
    Node *const root = unfinished.root;
    Node *mother = nullptr;  // of the node that is read next
    Node *left = nullptr;    // its left sister
    bool mother_has_word = false;
    bool finished = false;
    room_ = bulk_ ? &bulk_->room() : &(own_room_ = {});
    // A node and all below it have been read: goes on with its next sister, or ends with the root.
    const auto close = [&](Node *node) {
        room_->nodes.push_back(node);
        mother_has_word = false;
        finished = node == root;
        mother = node->mother;
        left = node;
    };
    while (!finished) {
        skip_blanks();
        if (*p_ == ')') {
            if (!mother) fail("Empty node encountered in line %d", lines);
            ++p_;
            close(mother);
            continue;
        }
        if (mother_has_word) fail("Lexical item on a node with daughters, line %d", lines);
        Node *node = mother ? add_daughter(mother, left) : root;
        const bool bracketed = *p_ == '(';
        if (bracketed) ++p_;
        room_->labels.emplace_back(category(bracketed), &node->syn);
        bool closes_mother = false, has_word = false;
        if (!annotations(node, bracketed, closes_mother, has_word)) {
            mother = node;
            mother_has_word = has_word;
            left = nullptr;
            continue;
        }
        close(node);
        if (closes_mother && mother) close(mother);
    }
    unfinished.root = nullptr;
    room_->root = root;
    room_->checked = TREE_CHECKED;
    if (bulk_) {
        bulk_->store();
    } else {
        intern(room_->labels);
        store_tree(root, room_->nodes);
    }
    return root;
}

void readtree(TreeEntry &entry, std::string_view text) {
    entry.root = TreeReader(text).read_tree();
}

}  // namespace brindle
