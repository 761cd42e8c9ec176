#pragma once
// What --help and ACTION --help look like.
#include <memory>

#include <CLI/CLI.hpp>

namespace brindle::batch {

// The layout of all help texts: a GNU usage line, options as they are typed, and lines of 79 columns at most.
std::shared_ptr<CLI::FormatterBase> help_layout();

}  // namespace brindle::batch
