#pragma once
// The proof that the statistics are those of the trees as they stand.
#include <string>

#include "model/corpus.hpp"

namespace brindle {

// Recounts the corpus from nothing, the references of undo tags included, and compares every entry, unit and
// mother context, the order of every list and chain and what their indexes hold; checks too how the trees
// hang together. Returns the first difference in words, "" when all is sound. Linear time; for tests.
std::string verify(Corpus &corpus);

}  // namespace brindle
