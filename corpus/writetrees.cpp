#include "corpus/writetrees.hpp"

#include <algorithm>
#include <charconv>

#include "base/limits.hpp"
#include "base/text_parts.hpp"
#include "model/punctuation.hpp"
#include "model/traversal.hpp"

namespace brindle {
namespace {

// What a node is written with: from its labels, for a tree or two, or from the texts of units, made once, for
// many.
struct FromLabels {
    bool punctuation(const Node *node) const { return brindle::punctuation(node->syn()); }
    bool has_word(const Node *node) const { return node->lex(); }
    std::size_t room(const Node *node) const {
        std::size_t room = node->syn()->size + 2 + 3 * label_overrun;
        if (node->sem()) room += node->sem()->size;
        return node->lex() ? room + node->lex()->size : room;
    }
    char *copy(char *to, const Node *node) const {
        to = copy_label(to, node->syn());
        if (node->sem()) to = copy_label((*to = START_SEM_TAG, to + 1), node->sem());
        if (node->lex()) to = copy_label((*to = START_LEX_TAG, to + 1), node->lex());
        return to;
    }
};

class FromUnits {
  public:
    explicit FromUnits(const Corpus &corpus) : units_(corpus.units), texts_(corpus.unit_texts) {}
    bool punctuation(const Node *node) const { return text(node).punctuation; }
    bool has_word(const Node *node) const { return text(node).has_word; }
    std::size_t room(const Node *node) const { return text(node).size + UnitTexts::overrun; }
    char *copy(char *to, const Node *node) const {
        const UnitTexts::Text t = text(node);
        // Most are short, and a copy of one size is a few instructions.
        std::memcpy(to, texts_.bytes(t), t.size <= UnitTexts::overrun ? UnitTexts::overrun : t.size);
        return to + t.size;
    }

  private:
    const UnitTexts::Text &text(const Node *node) const { return texts_.of(units_.number_of(node->unit())); }

    const Units &units_;
    const UnitTexts &texts_;
};

// The node up to its daughters: all of it, if it has none. One whose first daughter has daughters or a word
// is a block of its own, on a new line; so is punctuation; any other is written in the line.
template <class Texts>
void open_node(const Node *node, const Texts &texts, TextBuffer &out, int level) {
    const Node *const first = node->dtrs();
    const bool block = first && (first->dtrs() || texts.has_word(first));
    char *to = out.room(static_cast<std::size_t>(level) * 4 + 8 + texts.room(node));
    if (block || texts.punctuation(node)) {
        *to++ = '\n';
        const auto blanks = block && level == 0 ? 1 : static_cast<std::size_t>(level) * 4;
        std::memset(to, ' ', blanks);
        to += blanks;
    } else {
        *to++ = ' ';
    }
    if (first) *to++ = '(';
    out.end_at(texts.copy(to, node));
}

template <class Texts>
void write_nodes(const Node *node, const Texts &texts, TextBuffer &out, int level) {
    const Node *const above = node->mother();
    while (true) {
        open_node(node, texts, out, level);
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

template <class Texts>
void write_entry(const Corpus &corpus, int t, const Texts &texts, TextBuffer &out) {
    const Tree &tree = corpus.tree(t);
    if (tree.checked) out << "*\n";
    out << '(';
    write_nodes(tree.root, texts, out, 0);
    out << ")\n";
    if (const std::string_view graph = corpus.wordgraph(t); !graph.empty()) out << graph << '\n';
}

// The trees that are written at a time, while others write others.
constexpr int trees_of_part = 512;

void write_trees(const Corpus &corpus, int part, TextBuffer &out) {
    if (part == 0) out << '\n';
    const int end = std::min(corpus.amount(), (part + 1) * trees_of_part);
    for (int t = part * trees_of_part; t < end && out.ok(); ++t) {
        tree_number(t + 1, out);
        write_entry(corpus, t, FromUnits(corpus), out);
    }
}

}  // namespace

void tree_number(int number, TextBuffer &out) {
    char digits[16];
    const char *end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    out << "\ntree #" << std::string_view(digits, static_cast<std::size_t>(end - digits)) << '\n';
}

void write_tree(const Node *node, TextBuffer &out, int level) {
    write_nodes(node, FromLabels{}, out, level);
}

void write_tree(const Node *node, std::string &out, int level) {
    TextBuffer buffer;
    write_tree(node, buffer, level);
    out += buffer.text();
}

void write_tree_entry(const Corpus &corpus, int t, TextBuffer &out) {
    write_entry(corpus, t, FromLabels{}, out);
}

void write_the_words(const Node *root, TextBuffer &out) {
    for (const Node *n = root; n; n = next_in_document(n, root))
        if (n->lex()) out << n->lex()->view() << ' ';
    out << '\n';
}

bool save_corpus(const Corpus &corpus, TextSink &sink) {
    corpus.unit_texts.complete(corpus.units);
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

// The subtree; `begin_line(depth)` comes before each node.
template <class BeginLine>
void write_bracketing(std::string &text, const Node *top, BeginLine &&begin_line) {
    std::size_t depth = 0;
    for (const Node *n = top;;) {
        begin_line(depth);
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
        if (depth == 0) return;
        n = n->sister();
    }
}

}  // namespace

std::string write_tree_to_editor(const Node *node) {
    std::string text;
    write_bracketing(text, node, [&](std::size_t depth) {
        text += '\n';
        text.append(4 * std::min(depth, indented_levels), ' ');
    });
    return text;
}

std::string bracketing_of(const Node *node) {
    std::string text;
    write_bracketing(text, node, [&](std::size_t depth) {
        if (depth > 0) text += ' ';
    });
    return text += '\n';
}

}  // namespace brindle
