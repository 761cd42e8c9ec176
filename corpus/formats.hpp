#pragma once
// The four formats of "Save as", tree by tree, into any sink: for whole corpora, for selections, for a shell.
#include <memory>
#include <string>

#include "base/text_sink.hpp"
#include "corpus/codeer.hpp"
#include "corpus/information.hpp"

namespace brindle {

class OutputFile;

// The numbers are those of the requestor's choice "Write in:".
enum class CorpusFormat : int { atis = 0, dop = 1, dop2 = 2, info = 3 };

// True if a file of that name gets trees below the extra root "sss" in the DOP formats.
bool augments(std::string_view name);

// Writes trees in one format, as the items of a selection. In the DOP formats it is one encoding run, whose
// side files appear with `commit`.
class TreeWriter {
  public:
    // Starts the encoder for a DOP format (the program ends if it cannot be started). `evaluate` is used by
    // the information format only. The sink must outlive the writer.
    TreeWriter(Corpus &corpus, CorpusFormat format, bool augmented, TextSink &sink,
               EvaluateFormula evaluate = {});
    ~TreeWriter();

    // Writes tree t (0-based) as that item (from 1). False once the sink has failed.
    bool write(int t, int item);
    // Hands the last text on and makes the grammar of the second DOP format. False: the sink has failed.
    bool flush();
    // Puts the side files in place; flush first. False: see fault().
    bool commit();
    // The side file that could not be written.
    WriteFault fault() const;

  private:
    Corpus &corpus_;
    CorpusFormat format_;
    bool augmented_;
    TextBuffer out_;
    EvaluateFormula evaluate_;
    std::unique_ptr<EncodingRun> codes_;
};

// Ends the writing into a file: the file and all side files appear, or (as far as the system allows it) none.
// Returns what failed; an empty name: nothing did.
WriteFault commit_all(TreeWriter &writer, OutputFile &file, const std::string &name);

}  // namespace brindle
