#include "propose/selection_writer.hpp"

#include "model/output_file.hpp"
#include "model/request.hpp"

namespace brindle {

WriteFault write_selection(const BatchRun &run, const std::string &name, CorpusFormat format,
                           const EvaluateFormula &evaluate, int &last) {
    last = -1;
    OutputFile file(name);
    if (!file.ok()) return {name, file.error()};
    TreeWriter writer(format, augments(name), file, evaluate);
    int item = 0;
    last = run_batch(run, [&](int tree) {
        if (!writer.write(tree, ++item)) BATCH = false;  // the file has failed: the rest cannot be written
    });
    return commit_all(writer, file, name);
}

}  // namespace brindle
