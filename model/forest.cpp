#include "model/forest.hpp"

#include <tsl/robin_map.h>

#include "model/traversal.hpp"

namespace brindle {

std::vector<TreeEntry> forest;
int amount = 0;
std::string CORPUS;
std::timespec CORPUS_MOD_TIME = {};
int MODIFIED = 0;
bool TREE_CHECKED = false;

namespace {
struct RootHash {
    std::size_t operator()(const Node *root) const {
        const std::uint64_t h = reinterpret_cast<std::uintptr_t>(root) * 0x9e3779b97f4a7c15u;
        return h ^ (h >> 32);
    }
};

using TreeNumbers = tsl::robin_map<const Node *, int, RootHash>;
TreeNumbers &tree_numbers() {
    static TreeNumbers numbers;
    return numbers;
}
}  // namespace

void register_root(const Node *root, int tree) {
    auto &numbers = tree_numbers();
    if (numbers.empty()) numbers.reserve(forest.size());
    numbers[root] = tree;
}

void forget_root(const Node *root) {
    tree_numbers().erase(root);
}

TreeEntry *tree_of(const Node *node) {
    while (node->mother) node = node->mother;
    const auto found = tree_numbers().find(node);
    return found == tree_numbers().end() ? nullptr : &forest[static_cast<std::size_t>(found->second)];
}

void reset_forest() {
    for (TreeEntry &tree : forest)
        if (tree.root) do_with(tree.root, release_node);
    forest.clear();
    tree_numbers().clear();
    amount = 0;
    CORPUS.clear();
    CORPUS_MOD_TIME = {};
    MODIFIED = 0;
    TREE_CHECKED = false;
}

}  // namespace brindle
