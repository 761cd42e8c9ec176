#pragma once
// Random work on the corpus in memory, as a person at the windows might do it in any order.
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "model/forest.hpp"

namespace brindle::test {

class RandomEdits {
  public:
    // One kind of work; its function does it once, on a random node of the tree, under the tree's flag.
    struct Kind {
        const char *name;
        int weight;
        std::function<void(int tree, Node *node)> work;
    };

    // Tags and categories are drawn from `vocabulary` made-up ones of each sort and from those in the trees.
    RandomEdits(unsigned seed, int vocabulary);

    // Adds a kind of work to those that there are: label changes, undo, checks, clears, copies, saves,
    // replacements of subtrees, proposals.
    void add(Kind kind);

    // Does one thing; what it was stands in `log`.
    void step();

    std::vector<std::string> log;

    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    Node *random_node(int tree);
    std::string random_tag();

  private:
    void add_label_changes();
    void add_tree_changes();
    void add_questions();

    std::mt19937 random_;
    int vocabulary_;
    int total_weight_ = 0;
    std::vector<Kind> kinds_;
};

// A corpus of small random trees, as text.
std::string random_corpus(unsigned seed, int nr_of_trees, int vocabulary);

}  // namespace brindle::test
