#include "app/batch/write_action.hpp"

#include <numeric>

#include "app/batch/progress.hpp"
#include "app/batch/session.hpp"
#include "corpus/formats.hpp"
#include "corpus/writetrees.hpp"
#include "model/forest.hpp"
#include "model/output_file.hpp"
#include "model/request.hpp"
#include "prolog/checking.hpp"

namespace brindle::batch {
namespace {

CorpusFormat format_of(const std::string &name) {
    if (name == "dop") return CorpusFormat::dop;
    if (name == "dop2") return CorpusFormat::dop2;
    return name == "info" ? CorpusFormat::info : CorpusFormat::atis;
}

std::vector<int> all_trees() {
    std::vector<int> trees(static_cast<std::size_t>(amount));
    std::iota(trees.begin(), trees.end(), 0);
    return trees;
}

// Writes the trees as a run: a formula that cannot be made ends it, as it ends every run.
bool write_trees(TreeWriter &writer, const std::vector<int> &trees, ShellFrontEnd &shell) {
    BATCH = true;
    bool good = true;
    for (std::size_t i = 0; i < trees.size() && good && BATCH; ++i) {
        good = writer.write(trees[i], static_cast<int>(i) + 1);
        shell.progress(nullptr, static_cast<int>(i) + 1, static_cast<int>(trees.size()));
    }
    BATCH = false;
    return good;
}

int write_run(const Options &options, const std::vector<int> &trees, ShellFrontEnd &shell) {
    const CorpusFormat format = format_of(options.format);
    const auto write_into = [&](TextSink &sink, auto &&finish) {
        TreeWriter writer(format, augments(options.output), sink,
                          [](Node *root) { return evaluate_formula(root, nullptr); });
        write_trees(writer, trees, shell);
        return finish(writer);
    };
    if (options.output == "-") {
        WriteFault fault;
        const int status = write_to("-", [&](TextSink &sink) {
            return write_into(sink, [&](TreeWriter &writer) {
                if (!writer.flush()) return false;
                if (!writer.commit()) fault = writer.fault();
                return true;
            });
        });
        return status == done && !fault.name.empty() ? told(fault.name, fault.reason) : status;
    }
    OutputFile file(options.output);
    if (!file.ok()) return told(options.output, file.error());
    const WriteFault fault =
        write_into(file, [&](TreeWriter &writer) { return commit_all(writer, file, options.output); });
    return fault.name.empty() ? done : told(fault.name, fault.reason);
}

}  // namespace

int run_write(const Options &options) {
    load(options);
    ShellFrontEnd shell(options.quiet);
    frontend = &shell;
    int status = done;
    if (format_of(options.format) == CorpusFormat::atis && !options.selecting)
        status = put_out_corpus(options);
    else
        status = write_run(options, options.selecting ? selected_trees(options) : all_trees(), shell);
    frontend = silent_frontend();
    return shell.errors() > 0 ? failed : status;
}

}  // namespace brindle::batch
