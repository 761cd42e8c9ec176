#include "corpus/writetrees.hpp"

#include <charconv>

#include "model/punctuation.hpp"
#include "model/traversal.hpp"

namespace brindle {
namespace {

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
    } else if (punctuation(node->syn)) {
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

void write_tree(const Node *node, TextBuffer &out, int level) {
    const Node *const above = node->mother;
    while (true) {
        out.spill();
        open_node(node, out.text, level);
        if (node->dtrs) {
            node = node->dtrs;
            ++level;
            continue;
        }
        close_node(node, out.text);
        while (!node->sister) {
            node = node->mother;
            if (node == above) return;
            --level;
            close_node(node, out.text);
        }
        node = node->sister;
    }
}

void write_tree_entry(const TreeEntry &tree, TextBuffer &out) {
    if (tree.checked) out.text += "*\n";
    out.text += '(';
    write_tree(tree.root, out, 0);
    out.text += ")\n";
    if (tree.wordgraph) (out.text += *tree.wordgraph) += '\n';
}

namespace {

// Lets `write` append to a text through a buffer that keeps everything.
template <class Write>
void append_to(std::string &out, Write write) {
    TextBuffer buffer;
    buffer.text.swap(out);
    write(buffer);
    buffer.text.swap(out);
}

}  // namespace

void write_tree(const Node *node, std::string &out, int level) {
    append_to(out, [&](TextBuffer &buffer) { write_tree(node, buffer, level); });
}

void write_tree_entry(const TreeEntry &tree, std::string &out) {
    append_to(out, [&](TextBuffer &buffer) { write_tree_entry(tree, buffer); });
}

void write_the_words(const Node *root, std::string &out) {
    for (const Node *n = root; n; n = next_in_document(n, root))
        if (n->lex) (out += n->lex->view()) += ' ';
    out += '\n';
}

bool save_corpus(TextSink &sink) {
    TextBuffer out(sink);
    out.text = "\n";
    for (int t = 0; t < amount && out.ok(); ++t) {
        tree_number(t + 1, out.text);
        write_tree_entry(forest[static_cast<std::size_t>(t)], out);
        out.spill();
    }
    return out.flush();
}

}  // namespace brindle
