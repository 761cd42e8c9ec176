// `write`: the corpus, or a selection of its trees, in one of the formats of "Save as".
#include <numeric>

#include "app/batch/actions.hpp"
#include "app/batch/session.hpp"
#include "app/batch/shell.hpp"
#include "corpus/formats.hpp"
#include "prolog/checking.hpp"
#include "prolog/run_once.hpp"
#include "propose/selection_writer.hpp"

namespace brindle::batch {
namespace {

CorpusFormat format_of(const std::string &name) {
    if (name == "dop") return CorpusFormat::dop;
    if (name == "dop2") return CorpusFormat::dop2;
    return name == "info" ? CorpusFormat::info : CorpusFormat::atis;
}

std::vector<int> all_trees(const Corpus &corpus) {
    std::vector<int> trees(static_cast<std::size_t>(corpus.amount()));
    std::iota(trees.begin(), trees.end(), 0);
    return trees;
}

// The formula, after what there is to tell; one that cannot be made ends the run.
Formula evaluated(Node *root, Run &run, RunDisplay &display) {
    CheckedFormula checked = evaluate_formula(run.corpus(), root);
    for (int i = 0; i < checked.dropped_chunks; ++i) display.print(output_dropped);
    if (checked.error) {
        display.tell_at(checked.error->node, checked.error->message);
        run.stop();
    }
    return std::move(checked.formula);
}

// Writes to standard output; the side files then appear as they can.
bool write_to_standard_output(TreeWriter &writer, Run &run, WriteFault &fault) {
    int item = 0;
    run.for_each_tree([&](int tree) {
        if (!writer.write(tree, ++item)) run.stop();
    });
    if (!writer.flush()) return false;
    if (!writer.commit()) fault = writer.fault();
    return true;
}

int write_run(Session &session, RunDisplay &display) {
    const Options &options = session.options;
    const CorpusFormat format = format_of(options.format);
    Run run(session.corpus, options.selecting ? session.selected_trees() : all_trees(session.corpus),
            display.hooks());
    const EvaluateFormula evaluate = [&](Node *root) { return evaluated(root, run, display); };
    WriteFault fault;
    if (options.output == "-") {
        const int status = write_to("-", [&](TextSink &sink) {
            TreeWriter writer(session.corpus, format, augments(options.output), sink, evaluate);
            return write_to_standard_output(writer, run, fault);
        });
        if (status != done) return status;
    } else {
        int last = -1;
        fault = write_selection(run, options.output, format, evaluate, last);
    }
    return fault.name.empty() ? done : told(fault.name, fault.reason);
}

}  // namespace

int run_write(const Options &options) {
    Session session(options);
    RunDisplay display(options.quiet);
    if (format_of(options.format) == CorpusFormat::atis && !options.selecting)
        return session.put_out_corpus();
    const int status = write_run(session, display);
    return display.errors() > 0 ? failed : status;
}

}  // namespace brindle::batch
