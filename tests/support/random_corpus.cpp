#include "support/random_corpus.hpp"

#include <vector>

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/links.hpp"

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

    Node *subtree(int levels, Node *mother, int position) {
        Node *node = new_node();
        node->mother = mother;
        node->position = position;
        if (levels > 1 && form_.chance(0.7)) {
            node->nr_of_dtrs = 1 + form_.below(shape_.daughters);
            Node **place = &node->dtrs;
            for (int d = 1; d <= node->nr_of_dtrs; ++d, place = &(*place)->sister)
                *place = subtree(levels - 1, node, d);
        }
        const bool has_word = !node->dtrs && form_.chance(0.8);
        const std::string tag = random_tag(shape_, source());
        const std::string category = name(has_word ? 't' : 'N', source().below(shape_.categories));
        const std::string word = name('w', source().below(shape_.words));
        store(intern(category), tag.empty() ? nullptr : intern(tag), has_word ? intern(word) : nullptr, node);
        return node;
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

void make_random_corpus(const RandomShape &shape, Random &random) {
    reset_forest();
    tables_init();
    const int patterns_seed = random.below(1 << 30);
    for (int t = 0; t < shape.trees; ++t) {
        const int pattern = shape.patterns ? random.below(shape.patterns) : random.below(1 << 20);
        Random form(static_cast<unsigned>(patterns_seed + pattern));
        TreeEntry &tree = forest.emplace_back();
        tree.checked = random.chance(shape.checked);
        const TreeCheckedScope scope(tree);
        tree.root = TreeMaker(shape, form, random).subtree(shape.depth, nullptr, 0);
        do_with(tree.root, parent);
        register_root(tree.root, t);
    }
    amount = shape.trees;
}

Node *random_node(Node *root, Random &random) {
    std::vector<Node *> nodes;
    for_each_in_subtree(root, [&](Node *node) { nodes.push_back(node); });
    return nodes[static_cast<std::size_t>(random.below(static_cast<int>(nodes.size())))];
}

}  // namespace brindle::test
