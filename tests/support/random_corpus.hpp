#pragma once
// Small random corpora, as texts.
#include <random>
#include <string>

#include "model/node.hpp"

namespace brindle::test {

// How the trees of a random corpus may look.
struct RandomShape {
    int trees = 6;
    int depth = 4;       // levels at most
    int daughters = 3;   // at most
    int categories = 3;  // of each kind
    int tags = 3;        // beside no tag
    int words = 4;
    double checked = 0.7;  // share of the trees
    // Trees are variants of this many patterns, each label drawn anew with the chance `noise`; 0: no
    // patterns.
    int patterns = 0;
    double noise = 1.0;
};

class Random {
  public:
    explicit Random(unsigned seed) : engine_(seed) {}
    // A number of 0 .. n - 1.
    int below(int n) { return std::uniform_int_distribution(0, n - 1)(engine_); }
    bool chance(double p) { return std::uniform_real_distribution(0.0, 1.0)(engine_) < p; }

  private:
    std::mt19937 engine_;
};

// One of the shape's labels: its tags are "s1" and so on, or ""; its categories "N0" ..., "t0" ... of nodes
// with a word; its words "w0" ...
std::string random_tag(const RandomShape &shape, Random &random);
std::string random_category(const RandomShape &shape, bool has_word, Random &random);

std::string random_corpus(const RandomShape &shape, Random &random);
// Of so many trees; with more tags and words the lists of the statistics are longer and change less often.
std::string random_corpus(unsigned seed, int trees, int tags_and_words);

// One node of the tree, each as likely as another.
Node *random_node(Node *root, Random &random);

}  // namespace brindle::test
