#pragma once
// The actions that work through a selection of trees and then write the whole corpus.
#include "app/batch/options.hpp"

namespace brindle::batch {

int run_check(const Options &options);
int run_uncheck(const Options &options);
int run_propose(const Options &options);
// With a report; the corpus only if -o was given.
int run_evaluate(const Options &options);
// An expansion error ends the run after its tree and makes the status 1; the corpus is written all the same.
int run_expand(const Options &options);

}  // namespace brindle::batch
