#pragma once
// Which trees a run takes: the choice of the batch box, worked out without it.
#include <span>
#include <vector>

#include "model/corpus.hpp"

namespace brindle {

// The numbers are those of the choice "Type of trees:".
enum class TreeTypes : int { checked = 0, unchecked = 1, both = 2 };

struct SelectionChoice {
    TreeTypes types = TreeTypes::checked;
    int from = 1;  // first and last tree of the range, counted from 1
    int to = 1;
    bool random = false;  // only `size` of the covered trees, shuffled with `seed`
    int size = 0;
    unsigned seed = 1;
};

// How many trees of the range are of the type. 0 when from > to.
int nr_of_appropriate_trees(const Corpus &corpus, const SelectionChoice &choice);

// The 0-based numbers of the chosen trees in the order of processing: ascending, or the first `size` of the
// covered trees shuffled (all of them when there are fewer).
std::vector<int> select_trees(const Corpus &corpus, const SelectionChoice &choice);

// Shuffles with the standard library's generator: srand(seed), then 2n swaps of places drawn with rand. A
// seed gives the same order again with the same library.
void shake_numbers(std::span<int> numbers, unsigned seed);

}  // namespace brindle
