#pragma once
// "Propose and evaluate results": proposals held against the annotations that they replace, and the report.
#include <string>

#include "propose/run.hpp"
#include "propose/selection.hpp"

namespace brindle {

// The counters of one run. "checked_count" everywhere; entries without one take no part.
struct ProposalResults {
    // The training set's labels before the run.
    int lexical_types = 0;
    int semantic_types = 0;
    int lexical_tokens = 0;
    int lexical_best = 0;  // occurrences of words with their most frequent category and tag
    int nonterminal_best = 0;
    int nonterminal_tokens = 0;
    int lexical_pairs = 0;
    int terminal_types = 0;
    int nonterminal_types = 0;
    int terminal_pairs = 0;
    int nonterminal_pairs = 0;
    // The selection.
    int random = 0;
    int seed = 0;
    int from = 0;
    int to = 0;
    // What was compared.
    int no_match_seen = 0;  // nodes whose previous tag was NO_MATCH
    int trees = 0;
    int nodes = 0;
    int terminals = 0;
    int nonterminals = 0;
    int trees_without_new_nodes = 0;
    int trees_with_only_new_nodes_wrong = 0;
    int new_nodes = 0;  // nodes whose previous tag the training set does not know for them
    int new_terminals = 0;
    int new_nonterminals = 0;
    int correct_trees = 0;
    int correct_nodes = 0;
    int correct_terminals = 0;
    int correct_nonterminals = 0;
    int wrong_trees = 0;
    int wrong_nodes = 0;
    int wrong_terminals = 0;
    int wrong_nonterminals = 0;
    int training_set = 0;  // checked trees before the run
    int training_set_after = 0;
};

// Counts the labels of the checked trees, and those trees.
void count_training_set(ProposalResults &results, Corpus &corpus);

// Compares the tag of every node of the tree with its undo_sem, counts, and returns the tree's score: 1000
// for every new node and 1 for every other wrong one.
long compare_with_previous(ProposalResults &results, const Corpus &corpus, int tree);

// The report's text, which names the corpus' file.
std::string report_text(const ProposalResults &results, const std::string &corpus_name);

// The whole run: proposes and compares the trees, and returns the report. `last` gets the tree taken last, -1
// if there was none. `choice` is what the run's trees were chosen by.
std::string propose_and_evaluate(Run &run, const SelectionChoice &choice, int &last);

}  // namespace brindle
