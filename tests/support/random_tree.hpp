#pragma once
// Random trees for tests of what is drawn: of many forms and label lengths, with punctuation.
#include <random>
#include <string>

namespace brindle::test {

// How a random tree is made.
struct RandomTreeShape {
    int max_nodes = 40;
    int max_daughters = 4;
    int punctuation_percent = 10;
    int tag_percent = 40;
    int word_percent = 80;  // of leaves
    int longest_label = 12;
    int longest_mother_tag = 0;  // more than 0: every mother gets a tag of up to that length
    int spine_percent = 0;       // how often the next node goes below the newest one, which makes deep trees
};

// Its bracketing, which a corpus file may hold.
std::string random_tree(std::mt19937 &random, const RandomTreeShape &shape);

}  // namespace brindle::test
