#include "model/frontend.hpp"

#include <fmt/format.h>

namespace brindle {

void FrontEnd::print(std::string_view line) {
    fmt::print("{}\n", line);
}

FrontEnd *silent_frontend() {
    static FrontEnd silent;
    return &silent;
}

FrontEnd *frontend = silent_frontend();

}  // namespace brindle
