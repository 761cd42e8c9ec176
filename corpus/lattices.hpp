#pragma once
// The reader of word-graph files: one lattice a tree, in corpus order, kept as text and never interpreted.
#include <string>
#include <string_view>

#include "model/corpus.hpp"

namespace brindle {

// Attaches the text's n-th lattice (from a line that begins with "BEGIN_LATTICE" to the next that begins with
// "END_LATTICE", behind a newline) to the n-th tree. Lines outside lattices are skipped, lattices behind the
// last tree not read. Returns "" or what is wrong; then some trees may have their lattices.
std::string attach_wordgraphs(Corpus &corpus, std::string_view text);

// The same for a file. Any fault, a file that cannot be read included, ends the program with status 1.
void read_wordgraphs(Corpus &corpus, const std::string &name);

}  // namespace brindle
