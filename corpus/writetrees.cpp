#include "corpus/writetrees.hpp"

#include <algorithm>
#include <charconv>

#include "base/limits.hpp"
#include "base/text_parts.hpp"
#include "model/punctuation.hpp"
#include "model/traversal.hpp"

namespace brindle {
namespace {

// A node whose first daughter has daughters or a word is a block of its own; any other is written in its
// line.
bool is_block(const Node *node) {
    return node->dtrs() && (node->dtrs()->dtrs() || node->dtrs()->lex());
}

char *copy_labelled(char *to, char mark, const Label *label) {
    *to++ = mark;
    return copy_label(to, label);
}

// What stands before a node: a blank, or a new line with its indentation.
char *lead_in(char *to, const Node *node, int level) {
    const bool block = is_block(node);
    if (!block && !punctuation(node->syn())) {
        *to++ = ' ';
        return to;
    }
    *to++ = '\n';
    const auto blanks = block && level == 0 ? 1 : static_cast<std::size_t>(level) * 4;
    std::memset(to, ' ', blanks);
    return to + blanks;
}

// The node up to its daughters: all of it, if it has none.
void open_node(const Node *node, TextBuffer &out, int level) {
    std::size_t most = static_cast<std::size_t>(level) * 4 + 8 + node->syn()->size + 3 * label_overrun;
    if (node->sem()) most += node->sem()->size;
    if (node->lex()) most += node->lex()->size;
    char *to = lead_in(out.room(most), node, level);
    if (node->dtrs()) *to++ = '(';
    to = copy_label(to, node->syn());
    if (node->sem()) to = copy_labelled(to, '|', node->sem());
    if (node->lex()) to = copy_labelled(to, '/', node->lex());
    out.end_at(to);
}

// The trees that are written at a time, while others write others.
constexpr int trees_of_part = 512;

void write_trees(const Corpus &corpus, int part, TextBuffer &out) {
    if (part == 0) out << '\n';
    const int end = std::min(corpus.amount(), (part + 1) * trees_of_part);
    for (int t = part * trees_of_part; t < end && out.ok(); ++t) {
        tree_number(t + 1, out);
        write_tree_entry(corpus, t, out);
    }
}

}  // namespace

void tree_number(int number, TextBuffer &out) {
    char digits[16];
    const char *end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    out << "\ntree #" << std::string_view(digits, static_cast<std::size_t>(end - digits)) << '\n';
}

void write_tree(const Node *node, TextBuffer &out, int level) {
    const Node *const above = node->mother();
    while (true) {
        open_node(node, out, level);
        if (node->dtrs()) {
            node = node->dtrs();
            ++level;
            continue;
        }
        while (!node->sister()) {
            node = node->mother();
            if (node == above) return;
            --level;
            out << ')';
        }
        node = node->sister();
    }
}

void write_tree(const Node *node, std::string &out, int level) {
    TextBuffer buffer;
    write_tree(node, buffer, level);
    out += buffer.text();
}

void write_tree_entry(const Corpus &corpus, int t, TextBuffer &out) {
    const Tree &tree = corpus.tree(t);
    if (tree.checked) out << "*\n";
    out << '(';
    write_tree(tree.root, out, 0);
    out << ")\n";
    if (const std::string_view graph = corpus.wordgraph(t); !graph.empty()) out << graph << '\n';
}

void write_the_words(const Node *root, TextBuffer &out) {
    for (const Node *n = root; n; n = next_in_document(n, root))
        if (n->lex()) out << n->lex()->view() << ' ';
    out << '\n';
}

bool save_corpus(const Corpus &corpus, TextSink &sink) {
    const int nr_of_parts = std::max(1, (corpus.amount() + trees_of_part - 1) / trees_of_part);
    return write_parts(sink, nr_of_parts, [&](int part, TextBuffer &out) { write_trees(corpus, part, out); });
}

// ---------------------------------------------------------------- the syntax editor

namespace {

// Levels that are indented, so that a chain of nodes without end does not grow with the square of its length.
// No sentence has as many.
constexpr std::size_t indented_levels = 250;

void write_label(std::string &text, const Node *node) {
    if (node->dtrs()) text += '(';
    text += text_of(node->syn());
    if (node->sem()) (text += START_SEM_TAG) += node->sem()->view();
    if (node->lex()) (text += START_LEX_TAG) += node->lex()->view();
}

}  // namespace

std::string write_tree_to_editor(const Node *node) {
    std::string text;
    std::size_t depth = 0;
    for (const Node *n = node;;) {
        text += '\n';
        text.append(4 * std::min(depth, indented_levels), ' ');
        write_label(text, n);
        if (n->dtrs()) {
            n = n->dtrs();
            ++depth;
            continue;
        }
        for (; depth > 0 && !n->sister(); --depth) {
            n = n->mother();
            text += ')';
        }
        if (depth == 0) return text;
        n = n->sister();
    }
}

}  // namespace brindle
