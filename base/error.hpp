#pragma once
// The end of the program on a fault that nobody can mend while it runs.
#include <string_view>

namespace brindle {

// Writes "\nerror: <message>\n" to standard error and exits with status 1.
[[noreturn]] void error(std::string_view message);

// Writes "<what>: <system's text for errno>" to standard error and exits with status 1.
[[noreturn]] void system_error_exit(std::string_view what);

// Writes "\nCannot open <name>; is a directory", without a newline behind it, to standard error and exits
// with status 1.
[[noreturn]] void directory_exit(std::string_view name);

}  // namespace brindle
