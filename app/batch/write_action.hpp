#pragma once
// `write`: the corpus, or a selection of its trees, in one of the formats of "Save as".
#include "app/batch/options.hpp"

namespace brindle::batch {

int run_write(const Options &options);

}  // namespace brindle::batch
