#include "corpus/doptrees.hpp"

#include "model/node.hpp"
#include "model/punctuation.hpp"

namespace brindle {
namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// A word with a digit at either end is a number.
std::string_view shown_word(const Label *word) {
    const std::string_view text = word->view();
    return !text.empty() && (is_digit(text.front()) || is_digit(text.back())) ? "number" : text;
}

class DopWriter {
  public:
    DopWriter(TextBuffer &out, DopMode mode, int tree, EncodingRun &codes)
        : out_(out), text_(out.text), mode_(mode), tree_(tree), codes_(codes) {}

    void write(const Node *node) {
        const Node *const above = node->mother;
        while (true) {
            out_.spill();
            if (node->dtrs && !node->lex) {
                open(node);
                node = node->dtrs;
                continue;
            }
            write_leaf(node);
            const Node *sister = next_shown_sister(node, false);
            while (!sister) {
                node = node->mother;
                if (node == above) return;
                text_ += "])";
                sister = next_shown_sister(node, false);
            }
            text_ += ',';
            node = sister;
        }
    }

  private:
    // A node with daughters, up to the first of them.
    void open(const Node *node) {
        (text_ += "tree(") += node->syn->view();
        if (node->sem && mode_ == DopMode::by_tag)
            (text_ += 'z') += codes_.codeer_old(node->sem);
        else if (node->sem)
            (text_ += 'x') += codes_.codeer(node, tree_);
        text_ += ",[";
    }

    void write_leaf(const Node *node) {
        if (!node->lex) {
            text_ += "tree(xxx,[tree(empty_,[])])";
            return;
        }
        (text_ += "tree(") += node->syn->view();
        if (node->sem) (text_ += 'x') += codes_.codeerlex(node);
        ((text_ += ",[tree(") += shown_word(node->lex)) += "_,[])])";
    }

    TextBuffer &out_;
    std::string &text_;
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
    if (augmented) out.text += "tree(sss,[";
    write_dop_tree(root, out, mode, tree, codes);
    out.text += augmented ? "]).\n" : ".\n";
}

}  // namespace brindle
