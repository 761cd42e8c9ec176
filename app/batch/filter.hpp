#pragma once
// `filter`: every tag of the selection through Prolog, whose answers become the tags.
#include "app/batch/options.hpp"

namespace brindle::batch {

// Starts Prolog, sends it the tags of the selected trees one by one, and writes the whole corpus. Without a
// Prolog that answers: a message, status 1, nothing written.
int run_filter(const Options &options);

}  // namespace brindle::batch
