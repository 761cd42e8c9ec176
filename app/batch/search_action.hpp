#pragma once
// `search`, with and without a replacement.
#include "app/batch/options.hpp"

namespace brindle::batch {

// Writes a line a match in search order: TREE, PATH, category, tag and word, with tabs between them. With
// --replace: replaces all and writes the whole corpus instead. Refusals go to standard error; the status is
// then 1.
int run_search(const Options &options);

}  // namespace brindle::batch
