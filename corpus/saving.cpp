#include "corpus/saving.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <tuple>

#include "corpus/writetrees.hpp"
#include "model/output_file.hpp"
#include "stats/changes.hpp"

namespace brindle {
namespace {

struct FileSink : TextSink {
    explicit FileSink(OutputFile &to) : file(to) {}
    bool write(std::string_view piece) override { return file.write(piece); }
    OutputFile &file;
};

bool later(const std::timespec &a, const std::timespec &b) {
    return std::tie(a.tv_sec, a.tv_nsec) > std::tie(b.tv_sec, b.tv_nsec);
}

}  // namespace

SaveResult write_corpus(const std::string &name) {
    OutputFile file(name);
    FileSink sink(file);
    if (file.ok() && save_corpus(sink) && file.commit()) return {};
    return {SaveStatus::cannot_write, file.error()};
}

void note_saved(const std::string &name) {
    reset_edits();
    CORPUS = name;
    struct stat status = {};
    if (stat(name.c_str(), &status) == 0) CORPUS_MOD_TIME = status.st_mtim;
}

SaveResult save() {
    struct stat status = {};
    const bool exists = stat(CORPUS.c_str(), &status) == 0;
    if (exists && later(status.st_mtim, CORPUS_MOD_TIME)) return {SaveStatus::newer_on_disk, {}};
    if (exists && S_ISREG(status.st_mode)) backup(CORPUS);  // a backup that fails does not stop the save
    SaveResult result = write_corpus(CORPUS);
    if (result.status == SaveStatus::saved) note_saved(std::string(CORPUS));
    return result;
}

}  // namespace brindle
