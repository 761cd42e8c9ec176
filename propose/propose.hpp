#pragma once
// Proposing the annotation of a whole tree from the statistics of the checked trees.
#include <string_view>

#include "model/node.hpp"

namespace brindle {

struct PTree;

// The tag of a node for which there is no candidate.
inline constexpr std::string_view NO_MATCH = "NO_MATCH";

// The latest proposal met a node with daughters whose tag could not be inferred from them; such nodes are
// left selected. Set by batch_propose, read by whoever called it.
extern bool prob_break;

// Gives every node of tree number `tree` (0-based) the tag that the checked trees suggest, through new_label,
// and sets prob_break; selects the nodes of a break and no others. Repaints nothing. The caller unchecks the
// tree first: a checked one would be proposed from itself.
void batch_propose(int tree);

// Writes the chosen tags into the tree in document order and selects the nodes that were not inferred from
// their daughters. REQUIRES: choose(tree), and TREE_CHECKED.
void put_guessed_labels(const PTree &tree);

}  // namespace brindle
