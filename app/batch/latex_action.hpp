#pragma once
// `latex`: a subtree as a LaTeX document.
#include "app/batch/options.hpp"

namespace brindle::batch {

// Writes the document of the subtree, every node of it selected.
int run_latex(const Options &options);

}  // namespace brindle::batch
