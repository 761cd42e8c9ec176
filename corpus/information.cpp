#include "corpus/information.hpp"

#include <fmt/format.h>

#include "corpus/writetrees.hpp"
#include "model/corpus.hpp"

namespace brindle {
namespace {

std::string formula_paragraph(const Formula &formula) {
    switch (formula.outcome) {
        case Formula::Outcome::evaluated:
            return '\n' + formula.text + "\n\n";
        case Formula::Outcome::rejected:
            return "\nFormula rejected\n\n";
        case Formula::Outcome::cannot_be_made:
            break;
    }
    return "\nCould not create formula\n\n";
}

}  // namespace

void write_documented_tree(Node *root, TextBuffer &out, int number, const EvaluateFormula &evaluate) {
    out << fmt::format("\n======-{}-======\n\n", number);
    write_the_words(root, out);
    out << formula_paragraph(evaluate ? evaluate(root) : Formula{}) << '(';
    write_tree(root, out, 0);
    out << ")\n";
}

bool write_documented_corpus(const Corpus &corpus, TextSink &sink, const EvaluateFormula &evaluate,
                             const GoOn &go_on) {
    TextBuffer out(sink);
    for (int t = 0; t < corpus.amount() && out.ok() && (!go_on || go_on()); ++t)
        write_documented_tree(corpus.tree(t).root, out, t + 1, evaluate);
    return out.flush();
}

}  // namespace brindle
