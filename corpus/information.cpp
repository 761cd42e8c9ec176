#include "corpus/information.hpp"

#include <fmt/format.h>

#include "corpus/writetrees.hpp"
#include "model/forest.hpp"
#include "model/frontend.hpp"
#include "model/request.hpp"

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

bool write_documented_corpus(TextSink &sink, TreeView *view, const EvaluateFormula &evaluate) {
    TextBuffer out(sink);
    frontend->all_frames_busy(view, true);
    BATCH = true;
    for (int t = 0; t < amount && out.ok(); ++t) {
        frontend->notify_dispatch();
        if (!BATCH) break;
        write_documented_tree(forest[static_cast<std::size_t>(t)].root, out, t + 1, evaluate);
    }
    BATCH = false;
    frontend->all_frames_busy(view, false);
    return out.flush();
}

}  // namespace brindle
