#include "app/batch/latex_action.hpp"

#include <fmt/format.h>

#include "app/batch/session.hpp"
#include "model/forest.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "prolog/latex.hpp"

namespace brindle::batch {

int run_latex(const Options &options) {
    load(options);
    const int tree = tree_index(options.tree);
    Node *node = node_at(forest[static_cast<std::size_t>(tree)].root, options.node);
    if (!node) throw UsageError{fmt::format("no node {} in tree {}", options.node, options.tree)};
    for_each_in_subtree(node, [](Node *n) { n->selected = true; });
    return put_out(options, latex_document(node, tree, CORPUS, options.punctuation));
}

}  // namespace brindle::batch
