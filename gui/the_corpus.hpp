#pragma once
// The corpus that all windows work on.
#include "model/corpus.hpp"

namespace brindle {

// The one corpus of the workbench; empty until the program has read it.
Corpus &the_corpus();

}  // namespace brindle
