#include "corpus/saving.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <tuple>

#include <fmt/printf.h>

#include "base/output_file.hpp"
#include "corpus/writetrees.hpp"

namespace brindle {
namespace {

bool later(const std::timespec &a, const std::timespec &b) {
    return std::tie(a.tv_sec, a.tv_nsec) > std::tie(b.tv_sec, b.tv_nsec);
}

SaveResult cannot_write(const char *format, const WriteFault &fault) {
    return {SaveStatus::cannot_write, fault.reason, fmt::sprintf(format, fault.name, fault.reason)};
}

constexpr const char *cannot_save = "Cannot write to:\n%s\n%s";
constexpr const char *cannot_save_as = "cannot write to:\n%s\n%s";

// Writes the corpus natively; an empty name: it has been written. Its time is then `modified`.
WriteFault write_natively(const Corpus &corpus, const std::string &name, std::timespec &modified) {
    OutputFile file(name);
    if (!file.ok() || !save_corpus(corpus, file) || !file.commit()) return {name, file.error()};
    modified = file.modified();
    return {};
}

void note_saved(Corpus &corpus, const std::string &name, const std::timespec &modified) {
    corpus.forget_edits();
    corpus.name = name;
    corpus.file_time = modified;
}

SaveResult save_natively(Corpus &corpus, const std::string &name, const char *refusal) {
    std::timespec modified = {};
    const WriteFault fault = write_natively(corpus, name, modified);
    if (!fault.name.empty()) return cannot_write(refusal, fault);
    note_saved(corpus, name, modified);
    return {SaveStatus::saved, {}, name + " saved"};
}

// Both ways: below the extra root too, when the name asks for it.
WriteFault write_corpus_dop_style(Corpus &corpus, const std::string &name, CorpusFormat format) {
    OutputFile file(name);
    if (!file.ok()) return {name, file.error()};
    TreeWriter writer(corpus, format, augments(name), file);
    for (int t = 0; t < corpus.amount() && writer.write(t, t + 1); ++t) {
    }
    return commit_all(writer, file, name);
}

WriteFault write_information(const Corpus &corpus, const std::string &name, const EvaluateFormula &evaluate,
                             const GoOn &go_on) {
    OutputFile file(name);
    if (file.ok() && write_documented_corpus(corpus, file, evaluate, go_on) && file.commit()) return {};
    return {name, file.error()};
}

std::string written_message(const std::string &name, CorpusFormat format) {
    if (format == CorpusFormat::info) return name + " written in INFO-format";
    return fmt::sprintf("%s written in %sDOP-format %d", name, augments(name) ? "\"augmented\" " : "",
                        static_cast<int>(format));
}

}  // namespace

SaveResult write_corpus(const Corpus &corpus, const std::string &name) {
    std::timespec modified = {};
    const WriteFault fault = write_natively(corpus, name, modified);
    return fault.name.empty() ? SaveResult{} : cannot_write(cannot_save_as, fault);
}

void note_saved(Corpus &corpus, const std::string &name) {
    struct stat status = {};
    note_saved(corpus, name, stat(name.c_str(), &status) == 0 ? status.st_mtim : std::timespec{});
}

SaveResult save(Corpus &corpus) {
    const std::string name = corpus.name;
    struct stat status = {};
    const bool exists = stat(name.c_str(), &status) == 0;
    if (exists && later(status.st_mtim, corpus.file_time))
        return {SaveStatus::newer_on_disk,
                {},
                fmt::sprintf("Refuse to save to %s:\nFile on disk is newer.", name)};
    if (exists && S_ISREG(status.st_mode)) backup(name);  // a backup that fails does not stop the save
    return save_natively(corpus, name, cannot_save);
}

SaveResult save_as(Corpus &corpus, const std::string &name, CorpusFormat format,
                   const EvaluateFormula &evaluate, const GoOn &go_on) {
    if (format == CorpusFormat::atis) return save_natively(corpus, name, cannot_save_as);
    const WriteFault fault = format == CorpusFormat::info ? write_information(corpus, name, evaluate, go_on)
                                                          : write_corpus_dop_style(corpus, name, format);
    if (!fault.name.empty()) return cannot_write(cannot_save_as, fault);
    return {SaveStatus::saved, {}, written_message(name, format)};
}

bool can_be_read(const std::string &name) {
    return access(name.c_str(), R_OK) == 0;
}

}  // namespace brindle
