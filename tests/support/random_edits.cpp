#include "support/random_edits.hpp"

#include <fmt/format.h>

#include "editor/replacement.hpp"
#include "editor/subtree_text.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "propose/batch.hpp"
#include "stats/changes.hpp"
#include "stats/links.hpp"

namespace brindle::test {
namespace {

struct CorpusMaker {
    std::mt19937 random;
    int vocabulary;

    int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }

    std::string labels(const char *category) {
        std::string out = fmt::format("{}{}", category, below(3));
        if (below(3)) out += fmt::format("|t{}", below(vocabulary));
        return out;
    }

    std::string node(int depth) {
        if (depth == 0 || below(3) == 0) return fmt::format("{}/w{}", labels("T"), below(vocabulary));
        std::string out = "(" + labels("N");
        for (int i = below(4); i >= 0; --i) out += " " + node(depth - 1);
        return out + ")";
    }
};

}  // namespace

std::string random_corpus(unsigned seed, int nr_of_trees, int vocabulary) {
    CorpusMaker maker{std::mt19937(seed), vocabulary};
    std::string out;
    for (int t = 0; t < nr_of_trees; ++t)
        out += fmt::format("{}( {} )\n", maker.below(2) ? "*\n" : "", maker.node(4));
    return out;
}

RandomEdits::RandomEdits(unsigned seed, int vocabulary) : random_(seed), vocabulary_(vocabulary) {
    add_label_changes();
    add_tree_changes();
    add_questions();
}

void RandomEdits::add(Kind kind) {
    total_weight_ += kind.weight;
    kinds_.push_back(std::move(kind));
}

Node *RandomEdits::random_node(int tree) {
    Node *node = forest[static_cast<std::size_t>(tree)].root;
    while (node->dtrs && below(4)) {
        node = node->dtrs;
        while (node->sister && below(2)) node = node->sister;
    }
    return node;
}

std::string RandomEdits::random_tag() {
    if (const Label *tag = random_node(below(amount))->sem; tag && below(3)) return std::string(tag->view());
    return fmt::format("t{}", below(vocabulary_));
}

void RandomEdits::add_label_changes() {
    add({"tag", 8, [this](int, Node *node) { new_label(node, random_tag(), nullptr); }});
    add({"category", 3, [this](int, Node *node) {
             change_cat(node, fmt::format("{}{}", node->lex ? 'T' : 'N', below(3)), nullptr);
         }});
    add({"copy", 3,
         [this](int, Node *node) { new_label(node, text_of(random_node(below(amount))->sem), nullptr); }});
    add({"undo last", 4, [](int, Node *node) { undo_last(node, nullptr); }});
    add({"undo all", 2, [](int, Node *node) { undo_all(node); }});
    add({"undo the tree", 1,
         [](int tree, Node *) { do_with(forest[static_cast<std::size_t>(tree)].root, undo_all); }});
    add({"clear below", 1,
         [](int, Node *node) { for_each_in_subtree(node, [](Node *n) { clear(n, nullptr); }); }});
    add({"check", 4,
         [](int tree, Node *) { set_checked(tree, !forest[static_cast<std::size_t>(tree)].checked); }});
    add({"save", 1, [](int, Node *) { reset_edits(); }});
}

// What lies above the label statistics and must leave them sound.
void RandomEdits::add_tree_changes() {
    add({"replace", 2, [this](int tree, Node *node) {
             const std::string text = write_tree_to_editor(random_node(below(amount)));
             if (text.size() < 500) replace_subtree(tree, node, text + "\n");
         }});
    add({"propose", 1, [](int tree, Node *) { propose_tree(tree); }});
}

// Questions change nothing but the indexes that later changes must keep.
void RandomEdits::add_questions() {
    add({"ask", 2, [](int, Node *node) {
             if (!node->mother) return;
             const Context context = context_of(node);
             LabelEntry *category = category_entry(node);
             tags_above(category, context.path());
             PathTags room;
             search_link(category, tag_entry(node))->parents.tags_of(context.path(), room);
         }});
}

void RandomEdits::step() {
    int chance = below(total_weight_);
    std::size_t kind = 0;
    while ((chance -= kinds_[kind].weight) >= 0) ++kind;
    const int tree = below(amount);
    Node *node = random_node(tree);
    log.push_back(fmt::format("{} tree {} node {}", kinds_[kind].name, tree + 1, path_of(node)));
    TreeCheckedScope scope(forest[static_cast<std::size_t>(tree)]);
    kinds_[kind].work(tree, node);
}

}  // namespace brindle::test
