#include "base/error.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fmt/format.h>

namespace brindle {

void error(std::string_view message) {
    fmt::print(stderr, "\nerror: {}\n", message);
    std::exit(EXIT_FAILURE);
}

void system_error_exit(std::string_view what) {
    fmt::print(stderr, "{}: {}\n", what, std::strerror(errno));
    std::exit(EXIT_FAILURE);
}

void directory_exit(std::string_view name) {
    fmt::print(stderr, "\nCannot open {}; is a directory", name);
    std::exit(EXIT_FAILURE);
}

}  // namespace brindle
