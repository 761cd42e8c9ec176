#include "support/made_tree.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "model/path.hpp"
#include "model/traversal.hpp"

namespace brindle::test {
namespace {

std::string_view take_until(std::string_view &text, std::string_view ends) {
    const std::size_t length = std::min(text.find_first_of(ends), text.size());
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(length);
    return taken;
}

// A tag's brackets belong to it as long as they are balanced.
std::string_view take_tag(std::string_view &text) {
    std::size_t length = 0;
    int open = 0;
    for (; length < text.size(); ++length) {
        const char c = text[length];
        if (open == 0 && (c == ')' || c == '/' || c == ' ')) break;
        open += c == '(' ? 1 : c == ')' ? -1 : 0;
    }
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(length);
    return taken;
}

Node *parse_node_head(std::string_view &text) {
    const std::string_view syn = take_until(text, "|/() ");
    std::string_view sem, lex;
    if (text.starts_with('|')) text.remove_prefix(1), sem = take_tag(text);
    if (text.starts_with('/')) text.remove_prefix(1), lex = take_until(text, "() ");
    return make_node(syn, sem, lex);
}

Node *parse(std::string_view text) {
    Node *root = nullptr;
    Node *mother = nullptr;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c == '(') {
            Node *node = parse_node_head(text);
            if (mother) add_daughter(mother, node);
            if (!root) root = node;
            mother = node;
        } else if (c == ')') {
            mother = mother->mother;
        }
    }
    return root;
}

}  // namespace

MadeTree::MadeTree(std::string_view bracketing) : MadeTree(parse(bracketing)) {}

MadeTree::MadeTree(Node *root) {
    entry.root = root;
}

MadeTree::~MadeTree() {
    do_with(entry.root, release_node);
}

Node *MadeTree::at(std::string_view path) const {
    Node *node = node_at(entry.root, path);
    EXPECT_NE(node, nullptr) << "no node " << path;
    return node;
}

Node *add_daughter(Node *mother, Node *daughter) {
    Node **place = &mother->dtrs;
    while (*place) place = &(*place)->sister;
    *place = daughter;
    daughter->mother = mother;
    daughter->position = ++mother->nr_of_dtrs;
    return daughter;
}

Node *make_node(std::string_view syn, std::string_view sem, std::string_view lex) {
    Node *node = new_node();
    node->syn = intern(syn);
    node->sem = sem.empty() ? nullptr : intern(sem);
    node->lex = lex.empty() ? nullptr : intern(lex);
    return node;
}

Node *random_tree(std::mt19937 &random, const RandomTreeShape &shape) {
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto label = [&](int longest) {
        const auto length = static_cast<std::size_t>(1 + below(longest));
        return std::string(length, static_cast<char>('a' + below(3)));
    };
    const auto node = [&] {
        const std::string syn = below(100) < shape.punctuation_percent ? "." : label(shape.longest_label);
        return make_node(syn, below(100) < shape.tag_percent ? label(shape.longest_label) : "");
    };
    std::vector<Node *> nodes{node()};
    const int size = 1 + below(shape.max_nodes);
    while (static_cast<int>(nodes.size()) < size) {
        const bool spine = below(100) < shape.spine_percent;
        Node *mother =
            spine ? nodes.back() : nodes[static_cast<std::size_t>(below(static_cast<int>(nodes.size())))];
        if (mother->nr_of_dtrs < shape.max_daughters) nodes.push_back(add_daughter(mother, node()));
    }
    for (Node *n : nodes) {
        if (!n->dtrs && below(100) < shape.word_percent) n->lex = intern(label(shape.longest_label));
        if (n->dtrs && shape.longest_mother_tag > 0) n->sem = intern(label(shape.longest_mother_tag));
    }
    return nodes.front();
}

}  // namespace brindle::test
