#include "propose/propose.hpp"

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "propose/choice.hpp"
#include "stats/changes.hpp"

namespace brindle {

bool prob_break = false;

void batch_propose(int tree) {
    const TreeEntry &entry = forest[static_cast<std::size_t>(tree)];
    prob_break = false;
    for_each_in_subtree(entry.root, [](Node *node) { node->selected = false; });
    PTree p_tree = make_p_tree(entry.root);
    choose(p_tree);
    const TreeCheckedScope scope(entry);
    put_guessed_labels(p_tree);
}

void put_guessed_labels(const PTree &tree) {
    // The names are taken down before any tag is written, as the writing changes the statistics.
    std::vector<Label *> names(tree.nodes.size());
    Label *no_match = intern(NO_MATCH);
    for (std::size_t i = 0; i < tree.nodes.size(); ++i) {
        const std::uint32_t choice = tree.nodes[i].choice;
        names[i] = choice == PTreeNode::none ? no_match : tree.entries[choice].sem()->name;
    }
    for (std::size_t i = 0; i < tree.nodes.size(); ++i) {
        const PTreeNode &p = tree.nodes[i];
        new_label(p.node, text_of(names[i]), nullptr);
        const bool inferred = p.choice != PTreeNode::none && tree.entries[p.choice].built;
        if (p.node->dtrs && !inferred) p.node->selected = prob_break = true;
    }
}

}  // namespace brindle
