#pragma once
// The actions that work through a selection of trees and then write the whole corpus.
#include "app/batch/options.hpp"

namespace brindle::batch {

int run_check(const Options &options);
int run_uncheck(const Options &options);

}  // namespace brindle::batch
