#pragma once
// Proposing the annotation of a whole tree from the statistics of the checked trees.
#include <string_view>

#include "propose/choice.hpp"

namespace brindle {

// The tag of a node for which there is no candidate.
inline constexpr std::string_view NO_MATCH = "NO_MATCH";

// Proposes trees of one corpus, one after another.
class Proposer {
  public:
    explicit Proposer(Corpus &corpus) : corpus_(corpus), finder_(corpus) {}

    // Gives every node of the tree (0-based) the tag that the checked trees suggest. Selects the nodes of a
    // break and no others: nodes with daughters whose tags could not be inferred from them. Returns whether
    // there is one. The caller unchecks the tree first: a checked one would be proposed from itself.
    bool propose(int tree);

  private:
    bool put_guessed_labels();

    Corpus &corpus_;
    CandidateFinder finder_;
};

}  // namespace brindle
