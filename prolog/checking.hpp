#pragma once
// The evaluated formula of a tree in the information format.
#include "corpus/information.hpp"
#include "prolog/expansion.hpp"

namespace brindle {

struct CheckedFormula {
    Formula formula = {};
    std::optional<ExpansionError> error =
        {};                  // why it cannot be made, to be shown at its node; ends the work
    int dropped_chunks = 0;  // of the program's output (prolog/run_once.hpp)
};

// Expands the root's whole formula, gives it with " --- [] ---\n" to the checking program, and takes the
// first line of its answer if that begins with "(". The program is the command in BRINDLE_FORMULA_CHECKER
// ("update_check"), run in the directory BRINDLE_FORMULA_DIR ("/src/corpora/towns"; where that is not, the
// current one). The last argument is as in ExpansionOptions.
CheckedFormula evaluate_formula(Corpus &corpus, Node *root,
                                const std::function<void(Node *daughter)> &on_punctuation = {});

}  // namespace brindle
