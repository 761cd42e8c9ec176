#pragma once
// The proof that the statistics are those of the trees as they stand.
#include <string>

namespace brindle {

// Recounts the forest from nothing, the references of undo fields included, and compares every entry, link
// and mother context of both tables, the order of every list and chain and what their indexes hold; checks
// too how the trees hang together. Returns the first difference in words, "" when all is sound. Linear time;
// for tests.
std::string verify_tables();

}  // namespace brindle
