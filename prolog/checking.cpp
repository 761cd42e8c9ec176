#include "prolog/checking.hpp"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "prolog/child_command.hpp"
#include "prolog/run_once.hpp"
#include "prolog/subtrees.hpp"

namespace brindle {

namespace {

std::string variable(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}

std::vector<std::string> checking_program() {
    std::vector<std::string> words = command_words(variable("BRINDLE_FORMULA_CHECKER"));
    if (words.empty()) words.emplace_back("update_check");
    return words;
}

std::string checking_directory() {
    const std::string given = variable("BRINDLE_FORMULA_DIR");
    if (!given.empty()) return given;
    const std::string usual = "/src/corpora/towns";
    std::error_code error;
    return std::filesystem::is_directory(usual, error) ? usual : "";
}

}  // namespace

Formula evaluate_formula(Node *root, TreeView *view) {
    std::string formula;
    if (expand_expr(formula, root, view)) return {Formula::Outcome::cannot_be_made, ""};
    std::string answer;
    const bool ran = fork_n_wait(formula + " --- [] ---\n", answer, checking_program(), checking_directory());
    if (!ran || !answer.starts_with('(')) return {Formula::Outcome::rejected, ""};
    return {Formula::Outcome::evaluated, answer.substr(0, answer.find('\n'))};
}

}  // namespace brindle
