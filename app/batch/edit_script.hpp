#pragma once
// `edit`: the operations of a script, a line each, carried out in order.
#include "app/batch/options.hpp"

namespace brindle::batch {

// Runs the script on the corpus and writes the corpus (or, with --tables, the statistics). A line that cannot
// be carried out is told as "FILE:LINE: message"; then nothing is written and the status is 1.
int run_edit(const Options &options);

// Carries out one line on the corpus in memory. Returns "" or what is wrong with it; then nothing has
// changed.
std::string carry_out(std::string_view line);

}  // namespace brindle::batch
