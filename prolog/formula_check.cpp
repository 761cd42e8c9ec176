#include "prolog/formula_check.hpp"

#include <cstdlib>

#include "prolog/child_command.hpp"
#include "prolog/run_once.hpp"
#include "prolog/subtrees.hpp"

namespace brindle {
namespace {

std::string from_environment(const char *name, const char *otherwise) {
    const char *value = std::getenv(name);
    return value && *value ? value : otherwise;
}

}  // namespace

EvaluateFormula formula_checker(TreeView *view) {
    const auto program = command_words(from_environment("BRINDLE_FORMULA_CHECKER", "update_check"));
    const std::string directory = from_environment("BRINDLE_FORMULA_DIR", "/src/corpora/towns");
    return [=](Node *root) -> Formula {
        std::string input, output;
        if (expand_expr(input, root, view)) return {Formula::Outcome::cannot_be_made, {}};
        input += " --- [] ---\n";
        if (!fork_n_wait(input, output, program, directory) || !output.starts_with('('))
            return {Formula::Outcome::rejected, {}};
        return {Formula::Outcome::evaluated, output.substr(0, output.find('\n'))};
    };
}

}  // namespace brindle
