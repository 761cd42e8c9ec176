#pragma once
// `layout`: where the nodes of a tree stand.
#include "app/batch/options.hpp"

namespace brindle::batch {

// A line for the tree and one a shown node in document order; every byte of text is taken as 8 pixels wide.
int run_layout(const Options &options);

}  // namespace brindle::batch
