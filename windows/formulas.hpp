#pragma once
// What asks Prolog about a node's tag or a selected subtree's formula, and the expansion of formulas.
#include <functional>

#include "corpus/information.hpp"
#include "prolog/expansion.hpp"

namespace brindle {

class Node;
class Requestor;
class TreeWindow;

// "filter": asks for a new tag.
void filter_node(TreeWindow &window, Node &node);

// The entries of the menu "Subtrees": of the top of the selection around the node.
void evaluate_subtree(TreeWindow &window, Node &node);
void show_expansion(TreeWindow &window, Node &node);
void expand_annotations(TreeWindow &window, Node &node);

// "Evaluation predicate": its requestor, which the window owns; and opening that.
Requestor *new_predicate_requestor(TreeWindow &owner);
void ask_for_predicate(TreeWindow &window);

// What a command says that would ask Prolog something while it is answering: the text at the node, with "I
// Know" and "Please try to fix that"; the latter gives a Prolog that waits for input an answer.
void tell_busy(TreeWindow &window, const Node *node, std::string_view text);

// For ExpansionOptions: a window that hides punctuation shows it when a formula refers to it.
std::function<void(Node *daughter)> show_hidden_in(TreeWindow &window);

// Shows at its node why an expansion failed.
void show_error(const ExpansionError &error, TreeWindow &window);

// The root's formula for the information format. One that cannot be made ends the work through `stop` and is
// shown at its node.
Formula evaluate_root(Node *root, TreeWindow &window, const std::function<void()> &stop);

}  // namespace brindle
