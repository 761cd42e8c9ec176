#include "prolog/checking.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

#include "prolog/child_command.hpp"
#include "prolog/run_once.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

class Checking : public ::testing::Test {
  protected:
    ~Checking() override {
        unsetenv("BRINDLE_FORMULA_CHECKER");
        unsetenv("BRINDLE_FORMULA_DIR");
    }
    // What becomes of the first tree of a corpus.
    CheckedFormula checked(const std::string &text, const std::string &checker,
                           const std::string &directory = "/tmp") {
        setenv("BRINDLE_FORMULA_CHECKER", checker.c_str(), 1);
        setenv("BRINDLE_FORMULA_DIR", directory.c_str(), 1);
        test::TestCorpus corpus(text);
        CheckedFormula result = evaluate_formula(corpus, corpus.at("."));
        if (result.error) {
            EXPECT_EQ(result.error->node, corpus.at("."));
        }
        return result;
    }
    Formula evaluated(const std::string &text, const std::string &checker,
                      const std::string &directory = "/tmp") {
        return checked(text, checker, directory).formula;
    }
    using Outcome = Formula::Outcome;
    const std::string tree = "( (S|f(d1,d2) NP|a/towns VP|g(b)/grow) )";
};

TEST_F(Checking, the_program_gets_the_expansion_and_its_first_line_counts) {
    const Formula formula = evaluated(tree, "sh -c 'read f; echo \"($f)\"; echo more; pwd'");
    EXPECT_EQ(formula.outcome, Outcome::evaluated);
    EXPECT_EQ(formula.text, "(f(a,g(b)) --- [] ---)");
    EXPECT_EQ(evaluated(tree, "sh -c 'echo \"($(pwd))\"'", "/usr").text, "(/usr)");
}

TEST_F(Checking, refusals) {
    for (const char *checker : {"cat", "true", "sh -c 'echo \"(x)\"; kill -9 $$'", "no-such-checker-here"}) {
        EXPECT_EQ(evaluated(tree, checker).outcome, Outcome::rejected) << checker;
    }
    const CheckedFormula result = checked("( (S|f(d3) NP|a/towns) )", "cat");
    EXPECT_EQ(result.formula.outcome, Outcome::cannot_be_made);
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->message, "\"d3\": non-existent daughter.");
}

TEST_F(Checking, chunks_that_did_not_fit_are_told) {
    const CheckedFormula result = checked(tree, "sh -c 'echo \"(x)\"; head -c 30000 /dev/zero'");
    EXPECT_EQ(result.formula.outcome, Outcome::rejected);
    EXPECT_EQ(result.dropped_chunks, 3);
}

TEST_F(Checking, the_example_checker) {
    if (!is_on_path("swipl")) GTEST_SKIP() << "no SWI-Prolog here";
    const std::string trees = test::example("travel.trees");
    const std::string folder = test::example_folder();
    EXPECT_EQ(evaluated(trees, "./checker.pl", folder).text,
              "(train Paris-Lyon 08:10, 75 euros; train Paris-Lyon 17:15, 49 euros)");
    EXPECT_EQ(evaluated(tree, "./checker.pl", folder).outcome, Outcome::rejected);
}

}  // namespace
}  // namespace brindle
