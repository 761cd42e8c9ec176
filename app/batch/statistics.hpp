#pragma once
// The actions that tell about a corpus.
#include <string>

#include "app/batch/options.hpp"

namespace brindle::batch {

// `info`: lines "name TAB value".
int run_info(const Options &options);

// `tables`: the label statistics, whole.
int run_tables(const Options &options);

// The text of `tables`, also for `edit --tables`.
std::string tables_text();

}  // namespace brindle::batch
