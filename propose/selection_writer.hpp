#pragma once
// "Write selection to file": the trees of a selection, in its order, in any format of "Save as".
#include <string>

#include "corpus/formats.hpp"
#include "propose/run.hpp"

namespace brindle {

// Writes the trees of the run to the file, whole or not at all; when the run is stopped, the trees written so
// far are the selection. Changes nothing in the corpus. `last` gets the tree taken last, -1 if there was
// none. Returns what could not be written; an empty name: nothing.
WriteFault write_selection(Run &run, const std::string &name, CorpusFormat format,
                           const EvaluateFormula &evaluate, int &last);

}  // namespace brindle
