#pragma once
// Expansion of formulas: in a tag, "d1" stands for the formula of the first daughter, "d2" for the second,
// and so on; expansion puts the daughters' own expanded formulas in their places. Also the lines that ask
// Prolog about a formula, and the evaluation predicate that goes into them.
#include <optional>
#include <string>
#include <string_view>

#include "model/node.hpp"

namespace brindle {

struct TreeView;

// Why an expansion failed, and where. It has been shown at the node, and BATCH is cleared.
struct ExpansionError {
    const Node *node;
    std::string message;
};

// The longest expansion made, in bytes. Formulas that name a daughter twice double from level to level: a
// longer one is refused with "Expansion too long" at the node where it was asked for.
inline constexpr std::size_t max_expansion = std::size_t{4} << 20;

// Appends the expansion of the node's formula. References to daughters that are not selected become "D1" and
// so on, unless a batch runs. With SWAP_FLAG every node expanded gets its expansion as its tag (REQUIRES
// then: TREE_CHECKED is the tree's flag). A referenced punctuation daughter switches the view's punctuation
// on. The view may be null. After an error `out` is as it was.
std::optional<ExpansionError> expand_expr(std::string &out, Node *node, TreeView *view);

// As expand_expr with SWAP_FLAG set, under the flag of the node's tree, the text itself not wanted. Nodes
// expanded before an error keep their new tags.
std::optional<ExpansionError> expand_into_tags(Node *node, TreeView *view);

// The highest node of the unbroken chain of selected nodes that leads up from the node.
Node *top_of_selection(Node *node);

// "Show expanded annotation" and "Expand annotations" on the subtree that the node belongs to.
std::optional<ExpansionError> show_expansion(Node *node, TreeView *view);
std::optional<ExpansionError> make_expansions(Node *node, TreeView *view);

// The line that asks for the evaluation of an expanded formula: "predicate(formula).", or the formula alone,
// without a period, if the view has no predicate.
std::string evaluation_line(const TreeView &view, std::string_view formula);

// The line of "filter" and of each step of a batch: "predicate(tag).", or "tag." if the predicate is null.
std::string filter_line(const TreeView &view, std::string_view tag);

// Takes the view's evaluation predicate as typed ("": none) and returns the text for the footer.
std::string set_pred(TreeView &view, std::string_view predicate);

}  // namespace brindle
