#include "corpus/formats.hpp"

#include <fmt/format.h>

#include "base/output_file.hpp"
#include "corpus/doptrees.hpp"
#include "corpus/writetrees.hpp"

namespace brindle {

bool augments(std::string_view name) {
    return name.ends_with(".aug");
}

TreeWriter::TreeWriter(Corpus &corpus, CorpusFormat format, bool augmented, TextSink &sink,
                       EvaluateFormula evaluate)
    : corpus_(corpus), format_(format), augmented_(augmented), out_(sink), evaluate_(std::move(evaluate)) {
    if (format == CorpusFormat::dop || format == CorpusFormat::dop2)
        codes_ = std::make_unique<EncodingRun>(corpus);
}

TreeWriter::~TreeWriter() = default;

bool TreeWriter::write(int t, int item) {
    Node *const root = corpus_.tree(t).root;
    switch (format_) {
        case CorpusFormat::atis:
            tree_number(t + 1, out_);
            out_ << fmt::format("item #{}\n\n", item);
            write_tree_entry(corpus_, t, out_);
            break;
        case CorpusFormat::dop:
        case CorpusFormat::dop2: {
            const DopMode mode = format_ == CorpusFormat::dop ? DopMode::by_tag : DopMode::by_rule;
            write_dop_entry(root, out_, mode, t + 1, *codes_, augmented_);
            break;
        }
        case CorpusFormat::info:
            write_documented_tree(root, out_, item, evaluate_);
            break;
    }
    return out_.ok();
}

bool TreeWriter::flush() {
    if (!out_.flush()) return false;
    if (format_ == CorpusFormat::dop2) codes_->write_grammar();
    return true;
}

bool TreeWriter::commit() {
    return !codes_ || codes_->commit();
}

WriteFault TreeWriter::fault() const {
    return codes_ ? codes_->fault() : WriteFault{};
}

WriteFault commit_all(TreeWriter &writer, OutputFile &file, const std::string &name) {
    if (!writer.flush() || !file.complete()) return {name, file.error()};
    if (!writer.commit()) return writer.fault();
    if (!file.commit()) return {name, file.error()};
    return {};
}

}  // namespace brindle
