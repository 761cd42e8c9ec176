#include "prolog/checking.hpp"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "prolog/child_command.hpp"
#include "prolog/run_once.hpp"

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

CheckedFormula evaluate_formula(Corpus &corpus, Node *root,
                                const std::function<void(Node *daughter)> &on_punctuation) {
    CheckedFormula checked;
    std::string formula;
    checked.error = expand(formula, corpus, root, {.whole = true, .on_punctuation = on_punctuation});
    if (checked.error) return checked;
    const RunOutput answer = run_once(formula + " --- [] ---\n", checking_program(), checking_directory());
    checked.dropped_chunks = answer.dropped_chunks;
    if (answer.ended && answer.text.starts_with('('))
        checked.formula = {Formula::Outcome::evaluated, answer.text.substr(0, answer.text.find('\n'))};
    else
        checked.formula.outcome = Formula::Outcome::rejected;
    return checked;
}

}  // namespace brindle
