#pragma once
// `validate`: the syntax editor's checks on one bracketing.
#include "app/batch/options.hpp"

namespace brindle::batch {

// The message on standard error and `failed`, or nothing and `done`.
int run_validate(const Options &options);

}  // namespace brindle::batch
