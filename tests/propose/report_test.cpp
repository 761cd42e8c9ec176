#include "propose/report.hpp"

#include <gtest/gtest.h>

#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

// The whole report of a run over these trees.
std::string report(Corpus &corpus, const SelectionChoice &choice) {
    corpus.name = "towns";
    Run run(corpus, select_trees(corpus, choice));
    int last = 0;
    return propose_and_evaluate(run, choice, last);
}

TEST(report, of_proposals_against_the_annotations) {
    TestCorpus c(
        "* ( (S|s NP|n/john VP|v/walks) )\n"
        "* ( (S|s NP|n/john VP|w/talks) )\n"
        "( (S|s NP|n/john VP|v/walks) )\n"  // right
        "( (S|s NP|x/john VP|v/walks) )\n"  // a new terminal
        "( (S NP|n/john VP|w/walks) )\n");  // a new nonterminal, a new terminal
    EXPECT_EQ(
        report(c, {TreeTypes::unchecked, 1, 5}),
        "\nEvaluation of applying the propose function in batch mode to\nthe file: \ttowns"
        "\nSize of training set: 2 trees"
        "\n\nLabel types in training set:\n\nsemantic: \t4\nsyntactic: \n\tnonterminals: \t1\n\tterminals: "
        "\t2\nlexical: \t3"
        "\n\nAverage amount of possible semantical labels in trainingset per:\n\n"
        "lexical item:\t 1.00\nnonterminal:\t 1.00\nterminal:\t 1.50"
        "\n\nA priori probability that the most frequently occurring\n semantic annotation of a node of "
        "certain type is correct:\n\nfor nonterminal nodes: \t1.00\nfor lexical items: \t1.00"
        "\n\nRange of trees: from 1 to 5"
        "\n\nAmount of processed elements: \ntrees: \t3 \nnodes: \t9 \nterminals: \t6 \nnonterminals: \t3  "
        "\n\n"
        "Results: \n  \nnew nodes: \t3\nnew terminals: \t2\nnew nonterminals: \t1\namount of trees "
        "containing "
        "\nno new nodes: \t1 \n('new' nodes are nodes whose correct annotation does not occur \nin the "
        "training "
        "set)\n\n\ncorrect trees: \t1 \ncorrect nodes: \t6 \ncorrect terminals: \t4 \ncorrect nonterminals: "
        "\t2\n\nwrong trees: \t2 \nwrong nodes: \t0 \nwrong terminals: \t0 \nwrong nonterminals: \t0\n"
        "('wrong' counts,except those of wrong trees, do not include the 'new' counts)"
        "\n\nPercentages:\n\nCorrect trees:       \t33.33%\nCorrect nodes:         \t66.67%\n"
        "Correct terminals:     \t66.67%\nCorrect non-terminals: \t66.67%\n\nnew nodes:        \t33.33%  \n"
        "new terminals:    \t33.33%\nnew nonterminals: \t33.33%\n\nNot counting the 'new' nodes:  \n\n"
        "Correct nodes:         \t100.00%\nCorrect terminals:     \t100.00%\nCorrect non-terminals: "
        "\t100.00%\n\n"
        "Correct trees disregarding the 'new' nodes: \t100.00%\n"
        "Correct trees not counting trees with 'new' nodes: \t100.00%");
    EXPECT_EQ(c.text(4), "(S|s NP|n/john VP|v/walks)");
}

TEST(report, of_nothing) {
    TestCorpus c("( (S) )\n");
    const std::string text = report(c, {TreeTypes::checked, 1, 1});
    EXPECT_NE(text.find("lexical item:\t 0.00\nnonterminal:\t 0.00\nterminal:\t 0.00"), std::string::npos);
    EXPECT_NE(text.find("for nonterminal nodes: \t1.00\nfor lexical items: \t1.00"), std::string::npos);
    EXPECT_NE(text.find("Correct trees:       \t100.00%"), std::string::npos);
    EXPECT_NE(text.find("new nonterminals: \t0.00%"), std::string::npos);
    EXPECT_TRUE(
        text.ends_with("disregarding the 'new' nodes: \t100.00%\n"
                       "Correct trees not counting trees with 'new' nodes: \t0.00%"));
}

TEST(report, warns_of_shrinking_training_sets_random_choices_and_earlier_proposals) {
    TestCorpus c("* ( (S|NO_MATCH) )\n* ( (S|NO_MATCH) )\n");
    const std::string text = report(c, {TreeTypes::checked, 1, 2, true, 1, 7});
    EXPECT_NE(
        text.find("\nATTENTION!!\nThe string \"NO_MATCH\" occurred as a label in the previous annotations "
                  "of\nthe proposed trees.\nThis suggests"),
        std::string::npos);
    EXPECT_NE(
        text.find("\nA random selection of trees was taken, seed was 7.\nSize of training set: 2 trees"),
        std::string::npos);
    EXPECT_NE(text.find("\n\nSize of training set after proposing: 1!!\nTake better care next time."
                        "\n\nRange of trees: from 1 to 2"),
              std::string::npos);
}

TEST(report, scores_new_nodes_apart_from_wrong_ones) {
    TestCorpus c(
        "* ( (S|s NP|n/john) )\n* ( (S|t NP|n/john) )\n* ( (S|s NP|n/john) )\n"
        "( (S|t NP|new/john) )\n");
    propose_tree(c, 3);
    ProposalResults results;
    EXPECT_EQ(compare_with_previous(results, c, 3), 1001) << "S is s, which is wrong; NP's tag was new";
    EXPECT_EQ(results.wrong_nonterminals, 1);
    EXPECT_EQ(results.new_terminals, 1);
    EXPECT_EQ(results.correct_nodes, 0);
}

}  // namespace
}  // namespace brindle::test
