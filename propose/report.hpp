#pragma once
// "Propose and evaluate results": proposals held against the annotations that they replace, and the report.
#include <string>

#include "propose/batch.hpp"
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

// Counters of a new run: those of the selection, the others 0.
ProposalResults init_p_results(const SelectionChoice &choice);

// Counts the labels of the checked trees.
void get_labels_in_checked_trees(ProposalResults &results);

// The number of checked trees.
int get_nr_of_checked_trees();

// Compares every node's tag with its undo_sem, counts, and returns the tree's score: 1000 for every new node
// and 1 for every other wrong one.
long get_p_results(ProposalResults &results, const Node *root);

// The previous tag (undo_sem) does not occur with the node's category (and word) in checked trees.
bool undo_is_unknown(const Node *node);

// The report's text. It names CORPUS.
std::string print_p_results(const ProposalResults &results);

// The whole run: proposes and compares the trees, as run_batch does, and returns the report. `last` gets the
// tree taken last, -1 if there was none. REQUIRES: begin_batch().
std::string propose_and_evaluate(const BatchRun &run, const SelectionChoice &choice, int &last);

}  // namespace brindle
