#include "editor/bracketing.hpp"

#include <fmt/printf.h>

#include "model/limits.hpp"
#include "model/text.hpp"

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

// The structural pass over one text. Each step returns whether it went well; `message_` says why not.
class StructureCheck {
  public:
    explicit StructureCheck(std::string_view text) : p_(text.data()), end_(p_ + text.size()) {}

    std::string run() {
        while (node()) {
        }
        return message_;
    }

  private:
    enum class Ending {
        fault,
        complete,       // the node ends here
        closes_mother,  // a bare node ends, and the mother's bracket closes with it
        opens_list,     // the daughters follow
    };

    // Reads one node up to its daughter list, or the end of such a list. False: all is said.
    bool node() {
        if (!skip_blanks()) return false;
        if (*p_ == ')') {
            ++p_;
            return close_list();
        }
        if (word_on_mother_) return fault("Lexical item on a node with daughters");
        const bool bracketed = *p_ == '(';
        char kind = *p_;
        if (bracketed) ++p_;
        if (!check_readlabel(kind, MAXSYN - 1)) return false;
        switch (annotations(bracketed)) {
            case Ending::fault:
                return false;
            case Ending::complete:
                return open_lists_ > 0;
            case Ending::closes_mother:
                return close_list();
            case Ending::opens_list:
                ++open_lists_;
                return true;
        }
        return false;
    }

    // A daughter list ends. False: it was the top node's.
    bool close_list() {
        word_on_mother_ = false;
        if (open_lists_ > 0) --open_lists_;
        return open_lists_ > 0;
    }

    Ending annotations(bool bracketed) {
        bool tag = false, word = false;
        while (p_ != end_) {
            const char c = *p_;
            if (c == START_SEM_TAG) {
                ++p_;
                if (tag) return fault("Two semantic tags on one node."), Ending::fault;
                tag = true;
                if (!check_readlabel(START_SEM_TAG, MAXSEM - 1)) return Ending::fault;
            } else if (c == START_LEX_TAG) {
                ++p_;
                if (word) {
                    message_ = fmt::sprintf("Two lexical items on one node, line %d", line_);
                    return Ending::fault;
                }
                word = true;
                if (!check_readlabel(START_LEX_TAG, MAXSYN - 1)) return Ending::fault;
            } else if (c == ')') {
                ++p_;
                return bracketed || open_lists_ == 0 ? Ending::complete : Ending::closes_mother;
            } else {
                if (c == '\n') ++line_;
                if (c != '(') ++p_;
                word_on_mother_ = bracketed && word;
                return bracketed ? Ending::opens_list : Ending::complete;
            }
        }
        fault("Unexpected end of tree");
        return Ending::fault;
    }

    // One label and the character that ends it. `kind` is "(" for the category of a
    // bracketed node, "|" for a tag, "/" for a word, and the label's own first character for the category of
    // a bare node.
    bool check_readlabel(char kind, std::size_t most) {
        const bool is_tag = kind == START_SEM_TAG, is_word = kind == START_LEX_TAG;
        if (!is_tag && !is_word && !skip_blanks()) return false;
        const char *const start = p_;
        long nesting = 0;
        while (p_ != end_) {
            const std::size_t length = graphic_length(p_, end_);
            if (length == 0) break;
            if (*p_ == '(') {
                if (!is_tag && p_ == start) return fault("Unexpected '('");
                if (!is_tag) break;
                ++nesting;
            } else if (*p_ == ')') {
                if (nesting == 0) break;
                --nesting;
            } else if (*p_ == START_LEX_TAG) {
                if (kind == '(') return fault("Terminal node starting with (");
                if (!is_word) break;
            } else if (*p_ == START_SEM_TAG && !is_tag) {
                break;
            }
            p_ += length;
        }
        if (p_ == end_) return fault("Unexpected end of tree");
        if (nesting > 0) return fault("Unmatched '('");
        if (p_ == start) return editor_no_label(kind);
        if (static_cast<std::size_t>(p_ - start) > most) return fault("Label too long");
        return true;
    }

    bool editor_no_label(char kind) {
        return fault(kind == START_LEX_TAG   ? "Lexical item expected"
                     : kind == START_SEM_TAG ? "Semantic tag expected"
                                             : "Empty node encountered");
    }

    bool skip_blanks() {
        for (; p_ != end_ && graphic_length(p_, end_) == 0; ++p_)
            if (*p_ == '\n') ++line_;
        return p_ != end_ || fault("Unexpected end of tree");
    }

    bool fault(const char *what) {
        message_ = fmt::sprintf("Error on line %d:\n%s", line_, what);
        return false;
    }

    const char *p_;
    const char *end_;
    int line_ = 1;
    long open_lists_ = 0;          // daughter lists being read
    bool word_on_mother_ = false;  // the list just opened is that of a node with a word
    std::string message_;
};

}  // namespace

std::string check_readtree(std::string_view text) {
    return StructureCheck(text).run();
}

std::string check_bracketing(std::string_view text) {
    std::string message = check_tree_in_editor(text);
    return message.empty() ? check_readtree(text) : message;
}

}  // namespace brindle
