#include "support/random_corpus.hpp"

#include <vector>

#include "model/traversal.hpp"

namespace brindle::test {
namespace {

std::string name(char kind, int number) {
    return kind + std::to_string(number);
}

// Draws trees: their form by one source of chance, their labels by the same or, with the chance `noise`, by
// another.
class TreeMaker {
  public:
    TreeMaker(const RandomShape &shape, Random &form, Random &labels)
        : shape_(shape), form_(form), labels_(labels) {}

    std::string subtree(int levels) {
        std::string daughters;
        if (levels > 1 && form_.chance(0.7))
            for (int d = 1 + form_.below(shape_.daughters); d > 0; --d)
                daughters += ' ' + subtree(levels - 1);
        const bool has_word = daughters.empty() && form_.chance(0.8);
        const std::string tag = random_tag(shape_, source());
        std::string text = random_category(shape_, has_word, source());
        if (!tag.empty()) text += '|' + tag;
        const std::string word = name('w', source().below(shape_.words));
        if (has_word) text += '/' + word;
        return daughters.empty() ? text : '(' + text + daughters + ')';
    }

  private:
    // Whether or not the form's draw is used, it is taken, so that a pattern's form stays the same.
    Random &source() {
        const unsigned seed = static_cast<unsigned>(form_.below(1 << 30));
        if (labels_.chance(shape_.noise)) return labels_;
        return pattern_ = Random(seed);
    }

    const RandomShape &shape_;
    Random &form_;
    Random &labels_;
    Random pattern_{0};
};

}  // namespace

std::string random_tag(const RandomShape &shape, Random &random) {
    const int number = random.below(shape.tags + 1);
    return number ? name('s', number) : std::string();
}

std::string random_category(const RandomShape &shape, bool has_word, Random &random) {
    return name(has_word ? 't' : 'N', random.below(shape.categories));
}

std::string random_corpus(const RandomShape &shape, Random &random) {
    std::string text;
    const int patterns_seed = random.below(1 << 30);
    for (int t = 0; t < shape.trees; ++t) {
        const int pattern = shape.patterns ? random.below(shape.patterns) : random.below(1 << 20);
        Random form(static_cast<unsigned>(patterns_seed + pattern));
        text += random.chance(shape.checked) ? "*\n( " : "( ";
        text += TreeMaker(shape, form, random).subtree(shape.depth) + " )\n";
    }
    return text;
}

std::string random_corpus(unsigned seed, int trees, int tags_and_words) {
    Random random(seed);
    return random_corpus({.trees = trees,
                          .depth = 5,
                          .daughters = 4,
                          .tags = tags_and_words,
                          .words = tags_and_words,
                          .checked = 0.5},
                         random);
}

Node *random_node(Node *root, Random &random) {
    std::vector<Node *> nodes;
    for_each_in_subtree(root, [&](Node *node) { nodes.push_back(node); });
    return nodes[static_cast<std::size_t>(random.below(static_cast<int>(nodes.size())))];
}

}  // namespace brindle::test
