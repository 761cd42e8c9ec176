#pragma once
// Expansion of formulas: in a tag, "d1" stands for the formula of the first daughter, "d2" for the second,
// and so on; expansion puts the daughters' own expanded formulas in their places. Also the evaluation
// predicate, and the lines that ask Prolog about a formula with it.
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "model/corpus.hpp"

namespace brindle {

class Run;

// Why an expansion failed, and where: the notice to show at the node.
struct ExpansionError {
    Node *node;
    std::string message;
};

// The longest expansion made, in bytes. Formulas that name a daughter twice double from level to level: a
// longer one is refused with "Expansion too long" at the node where it was asked for.
inline constexpr std::size_t max_expansion = std::size_t{4} << 20;

struct ExpansionOptions {
    // References to daughters that are not selected are expanded, too; else they become "D1" and so on.
    bool whole = false;
    // Every node expanded gets its expansion as its tag; those expanded before an error keep it.
    bool into_tags = false;
    // Told of every punctuation daughter that a formula refers to: a window that hides punctuation shows it
    // then.
    std::function<void(Node *daughter)> on_punctuation = {};
};

// Appends the expansion of the node's formula. After an error `out` is as it was.
std::optional<ExpansionError> expand(std::string &out, Corpus &corpus, Node *node,
                                     const ExpansionOptions &options = {});

// The same with `into_tags`, the text itself not wanted.
std::optional<ExpansionError> expand_into_tags(Corpus &corpus, Node *node, ExpansionOptions options = {});

// A run: expands the whole formula of each root that has one into the tags. An error is told and stops the
// run. Returns the number of the tree taken last, -1 if there was none.
int expand_all(Run &run, const std::function<void(const ExpansionError &)> &failed,
               const std::function<void(Node *daughter)> &on_punctuation = {});

// The highest node of the unbroken chain of selected nodes that leads up from the node.
Node *top_of_selection(Node *node);

// The evaluation predicate of a window.
struct Predicate {
    std::string text = {};
    bool is_null = false;  // it was asked for and the answer was empty (a new window's is "" instead)

    // Takes what was typed ("": none) and returns the text for the footer.
    std::string set(std::string_view typed);

    // The line that asks for the evaluation of an expanded formula: "predicate(formula).", or the formula
    // alone, without a period, if there is no predicate.
    std::string evaluation_line(std::string_view formula) const;
    // The line of "filter": "predicate(tag).", or "tag." if the predicate is null.
    std::string filter_line(std::string_view tag) const;
    // The line of a run's step: the same, with "tag." for any empty predicate.
    std::string step_line(std::string_view tag) const;
};

}  // namespace brindle
