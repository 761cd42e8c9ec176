#pragma once
// Saving the corpus, with the bookkeeping that goes with it and without a window.
#include <string>

namespace brindle {

enum class SaveStatus {
    saved,
    newer_on_disk,  // someone else has changed the file since it was read or last saved; nothing was written
    cannot_write,   // the old file stands; `reason` holds the system's text
};

struct SaveResult {
    SaveStatus status = SaveStatus::saved;
    std::string reason;
};

// Writes the corpus to the file CORPUS, its old contents to CORPUS.bak; on success forgets the undo state,
// sets MODIFIED to 0 and CORPUS_MOD_TIME to the new file's time. Otherwise all of that stays.
SaveResult save();

// Writes the corpus in the native format to the file, whole or not at all, with no bookkeeping.
SaveResult write_corpus(const std::string &name);

// What a successful save of the file does: undo state, MODIFIED, CORPUS_MOD_TIME, and CORPUS = name.
void note_saved(const std::string &name);

}  // namespace brindle
