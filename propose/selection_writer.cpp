#include "propose/selection_writer.hpp"

#include "base/output_file.hpp"

namespace brindle {

WriteFault write_selection(Run &run, const std::string &name, CorpusFormat format,
                           const EvaluateFormula &evaluate, int &last) {
    last = -1;
    OutputFile file(name);
    if (!file.ok()) return {name, file.error()};
    TreeWriter writer(run.corpus(), format, augments(name), file, evaluate);
    int item = 0;
    last = run.for_each_tree([&](int tree) {
        if (!writer.write(tree, ++item)) run.stop();  // the file has failed: the rest cannot be written
    });
    return commit_all(writer, file, name);
}

}  // namespace brindle
