#pragma once
// The evaluated formula of a tree in the information format.
#include "corpus/information.hpp"

namespace brindle {

// Expands the root's formula, gives it with " --- [] ---\n" to the checking program, and takes the first line
// of its answer if that begins with "(". The program is the command in BRINDLE_FORMULA_CHECKER
// ("update_check"), run in the directory BRINDLE_FORMULA_DIR ("/src/corpora/towns"; where that is not, the
// current one). An expansion error has been shown at its node. The view may be null.
Formula evaluate_formula(Node *root, TreeView *view);

}  // namespace brindle
