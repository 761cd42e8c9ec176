#pragma once
// The information format: every tree with its words, its evaluated formula and its bracketing.
#include <functional>
#include <string>

#include "base/text_sink.hpp"

namespace brindle {

class Corpus;
class Node;

// What became of a root's formula.
struct Formula {
    enum class Outcome {
        evaluated,       // `text` is what the checking program answered, without its newline
        rejected,        // the checking program did not accept it
        cannot_be_made,  // the root's tag could not be expanded
    };
    Outcome outcome = Outcome::cannot_be_made;
    std::string text;
};

// Expands and evaluates the formula of a root. Expansion and the run of the checking program live in prolog/.
using EvaluateFormula = std::function<Formula(Node *root)>;

// One tree, with the number that it gets in the listing.
void write_documented_tree(Node *root, TextBuffer &out, int number, const EvaluateFormula &evaluate);

// Asked before each tree of a long work, whether to go on: what the user does can be handled there.
using GoOn = std::function<bool()>;

// The whole corpus; what comes after a "no" of `go_on` (if there is one) is left out. False as soon as the
// sink fails.
bool write_documented_corpus(const Corpus &corpus, TextSink &sink, const EvaluateFormula &evaluate,
                             const GoOn &go_on);

}  // namespace brindle
