#pragma once
// "Write selection to file": the trees of a selection, in its order, in any format of "Save as".
#include <string>

#include "corpus/formats.hpp"
#include "propose/batch.hpp"

namespace brindle {

// Writes the trees of the run to the file, whole or not at all; when BATCH is cleared, the trees written so
// far are the selection. Changes nothing in the corpus. `last` gets the tree taken last, -1 if there was
// none. Returns what could not be written; an empty name: nothing. REQUIRES: begin_batch().
WriteFault write_selection(const BatchRun &run, const std::string &name, CorpusFormat format,
                           const EvaluateFormula &evaluate, int &last);

}  // namespace brindle
