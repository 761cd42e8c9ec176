#include "app/batch/validate.hpp"

#include <fmt/format.h>

#include "app/batch/session.hpp"
#include "editor/bracketing.hpp"

namespace brindle::batch {

int run_validate(const Options &options) {
    std::string text;
    if (!take_in(options.corpus, text)) return failed;
    const std::string message = check_bracketing(text);
    if (message.empty()) return done;
    fmt::print(stderr, "{}\n", message);
    return failed;
}

}  // namespace brindle::batch
