#include "corpus/doptrees.hpp"

#include "model/node.hpp"
#include "model/punctuation.hpp"

namespace brindle {
namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// A word with a digit at either end is a number.
bool is_number(const Label *word) {
    return word->size > 0 && (is_digit(*word->text()) || is_digit(word->text()[word->size - 1]));
}

char *copy(char *to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

class DopWriter {
  public:
    DopWriter(TextBuffer &out, DopMode mode, int tree, EncodingRun &codes)
        : out_(out), mode_(mode), tree_(tree), codes_(codes) {}

    void write(const Node *node) {
        const Node *const above = node->mother();
        while (true) {
            if (node->dtrs() && !node->lex()) {
                open(node);
                node = node->dtrs();
                continue;
            }
            write_dop_term(node);
            const Node *sister = next_shown_sister(node, false);
            while (!sister) {
                node = node->mother();
                if (node == above) return;
                out_ << "])";
                sister = next_shown_sister(node, false);
            }
            out_ << ',';
            node = sister;
        }
    }

  private:
    // A node with daughters, up to the first of them.
    void open(const Node *node) {
        write_category(node);
        if (node->sem() && mode_ == DopMode::by_tag)
            out_ << 'z' << codes_.codeer_old(node->sem());
        else if (node->sem())
            out_ << 'x' << codes_.codeer(node, tree_);
        out_ << ",[";
    }

    void write_dop_term(const Node *node) {
        if (!node->lex()) {
            out_ << "tree(xxx,[tree(empty_,[])])";
            return;
        }
        write_category(node);
        if (node->sem()) out_ << 'x' << codes_.codeerlex(node);
        char *to = copy(out_.room(node->lex()->size + label_overrun + 20), ",[tree(");
        to = is_number(node->lex()) ? copy(to, "number") : copy_label(to, node->lex());
        out_.end_at(copy(to, "_,[])])"));
    }

    void write_category(const Node *node) {
        char *to = copy(out_.room(node->syn()->size + label_overrun + 5), "tree(");
        out_.end_at(copy_label(to, node->syn()));
    }

    TextBuffer &out_;
    DopMode mode_;
    int tree_;
    EncodingRun &codes_;
};

}  // namespace

void write_dop_tree(const Node *node, TextBuffer &out, DopMode mode, int tree, EncodingRun &codes) {
    DopWriter(out, mode, tree, codes).write(node);
}

void write_dop_entry(const Node *root, TextBuffer &out, DopMode mode, int tree, EncodingRun &codes,
                     bool augmented) {
    if (augmented) out << "tree(sss,[";
    write_dop_tree(root, out, mode, tree, codes);
    out << (augmented ? "]).\n" : ".\n");
}

}  // namespace brindle
