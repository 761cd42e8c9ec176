#pragma once
// The tags that a node is offered: those that its category or its word has in checked trees.
#include <vector>

#include "model/corpus.hpp"

namespace brindle {

// The most frequent first; null stands for no tag.
std::vector<const Label *> tags_of_category(const Corpus &corpus, const Node &node);
// Likewise, each once, at its first place. REQUIRES: the node has a word.
std::vector<const Label *> tags_of_word(const Corpus &corpus, const Node &node);

}  // namespace brindle
