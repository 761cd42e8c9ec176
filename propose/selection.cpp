#include "propose/selection.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace brindle {
namespace {

bool admits(TreeTypes types, const Tree &tree) {
    return types == TreeTypes::both || tree.checked == (types == TreeTypes::checked);
}

template <class Take>
void for_each_covered(const Corpus &corpus, const SelectionChoice &choice, Take take) {
    for (int t = choice.from - 1; t < choice.to; ++t)
        if (admits(choice.types, corpus.tree(t))) take(t);
}

}  // namespace

int nr_of_appropriate_trees(const Corpus &corpus, const SelectionChoice &choice) {
    int number = 0;
    for_each_covered(corpus, choice, [&](int) { ++number; });
    return number;
}

std::vector<int> select_trees(const Corpus &corpus, const SelectionChoice &choice) {
    std::vector<int> trees;
    for_each_covered(corpus, choice, [&](int t) { trees.push_back(t); });
    if (!choice.random) return trees;
    shake_numbers(trees, choice.seed);
    trees.resize(std::min(trees.size(), static_cast<std::size_t>(choice.size)));
    return trees;
}

void shake_numbers(std::span<int> numbers, unsigned seed) {
    std::srand(seed);
    const std::size_t n = numbers.size();
    for (std::size_t i = 0; i < 2 * n; ++i) {
        const std::size_t a = static_cast<std::size_t>(std::rand()) % n;
        const std::size_t b = static_cast<std::size_t>(std::rand()) % n;
        std::swap(numbers[a], numbers[b]);
    }
}

}  // namespace brindle
