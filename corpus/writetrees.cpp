#include "corpus/writetrees.hpp"

#include <charconv>

namespace brindle {
namespace {

constexpr std::size_t piece_size = 1 << 20;

bool is_punctuation(const Label *category) {
    if (category->size != 1) return false;
    const char c = category->text()[0];
    return c == '.' || c == '!' || c == '?';
}

// A node whose first daughter has daughters or a word is a block of its own; any other is written in its
// line.
bool is_block(const Node *node) {
    return node->dtrs && (node->dtrs->dtrs || node->dtrs->lex);
}

void indent(std::string &out, int level) {
    out.append(static_cast<std::size_t>(level) * 4, ' ');
}

void write_labels(const Node *node, std::string &out) {
    if (node->dtrs) out += '(';
    out += node->syn->view();
    if (node->sem) (out += '|') += node->sem->view();
}

// The node up to its daughters.
void open_node(const Node *node, std::string &out, int level) {
    if (is_block(node)) {
        out += '\n';
        if (level == 0)
            out += ' ';
        else
            indent(out, level);
    } else if (is_punctuation(node->syn)) {
        out += '\n';
        indent(out, level);
    } else {
        out += ' ';
    }
    write_labels(node, out);
}

// What follows the daughters.
void close_node(const Node *node, std::string &out) {
    if (node->dtrs) out += ')';
    if (node->lex && !is_block(node)) (out += '/') += node->lex->view();
}

}  // namespace

void tree_number(int number, std::string &out) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    out.append("\ntree #").append(digits, end) += '\n';
}

void write_tree(const Node *node, std::string &out, int level) {
    const Node *const above = node->mother;
    while (true) {
        open_node(node, out, level);
        if (node->dtrs) {
            node = node->dtrs;
            ++level;
            continue;
        }
        close_node(node, out);
        while (!node->sister) {
            node = node->mother;
            if (node == above) return;
            --level;
            close_node(node, out);
        }
        node = node->sister;
    }
}

void write_tree_entry(const TreeEntry &tree, std::string &out) {
    if (tree.checked) out += "*\n";
    out += '(';
    write_tree(tree.root, out, 0);
    out += ")\n";
    if (tree.wordgraph) (out += *tree.wordgraph) += '\n';
}

void write_the_words(const Node *root, std::string &out) {
    for (const Node *n = root; n;) {
        if (n->lex) (out += n->lex->view()) += ' ';
        if (n->dtrs) {
            n = n->dtrs;
            continue;
        }
        while (n && !n->sister) n = n->mother;
        if (n) n = n->sister;
    }
    out += '\n';
}

bool save_corpus(TextSink &sink) {
    std::string piece = "\n";
    for (int t = 0; t < amount; ++t) {
        tree_number(t + 1, piece);
        write_tree_entry(forest[static_cast<std::size_t>(t)], piece);
        if (piece.size() < piece_size) continue;
        if (!sink.write(piece)) return false;
        piece.clear();
    }
    return sink.write(piece);
}

}  // namespace brindle
