#pragma once
// The evaluated formula of the information format: a root's expansion, as a checking program answers it.
#include "corpus/information.hpp"

namespace brindle {

// Expands the root's formula over its daughters and runs the checking program on it: the words of the
// variable BRINDLE_FORMULA_CHECKER ("update_check" without it), in the directory BRINDLE_FORMULA_DIR
// ("/src/corpora/towns"). It gets the line "<formula> --- [] ---"; an answer that begins with "(" counts, up
// to its first newline. The view may be null. An expansion error is shown as every such error is.
EvaluateFormula formula_checker(TreeView *view);

}  // namespace brindle
