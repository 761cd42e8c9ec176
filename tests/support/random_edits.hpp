#pragma once
// Random work on a corpus, as a person at the windows might do it in any order.
#include <functional>
#include <string>
#include <vector>

#include "model/corpus.hpp"
#include "support/random_corpus.hpp"

namespace brindle::test {

class RandomEdits {
  public:
    // One kind of work; its function does it once, on a random node.
    struct Kind {
        const char *name;
        int weight;
        std::function<void(Node *node)> work;
    };

    // Tags are drawn from `vocabulary` made-up ones and from those in the trees.
    RandomEdits(Corpus &corpus, unsigned seed, int vocabulary);
    RandomEdits(const RandomEdits &) = delete;
    RandomEdits &operator=(const RandomEdits &) = delete;

    // Adds a kind of work to those that there are: label changes, undo, checks, clears, copies, saves,
    // replacements of subtrees, questions about paths.
    void add(Kind kind);

    // Does one thing; what it was stands in `log`.
    void step();

    std::vector<std::string> log;

    Random &random() { return random_; }
    Node *random_node();
    std::string random_tag();
    std::string random_category(const Node *node);

  private:
    void add_label_changes();
    void add_tree_changes();
    void add_questions();

    Corpus &corpus_;
    RandomShape shape_;
    Random random_;
    int total_weight_ = 0;
    std::vector<Kind> kinds_;
};

}  // namespace brindle::test
