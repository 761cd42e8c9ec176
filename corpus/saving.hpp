#pragma once
// Saving the corpus, with the bookkeeping that goes with it and without a window.
#include <string>

#include "corpus/formats.hpp"

namespace brindle {

enum class SaveStatus {
    saved,
    newer_on_disk,  // someone else has changed the file since it was read or last saved; nothing was written
    cannot_write,   // the old file stands; `reason` holds the system's text
};

struct SaveResult {
    SaveStatus status = SaveStatus::saved;
    std::string reason;
    std::string message;  // what to show: the footer of a save, else the text of the notice
};

// Writes the corpus to the file of its name, the file's old contents to NAME.bak; on success forgets the undo
// state, sets unsaved_changes to 0 and file_time to the new file's time. Otherwise all of that stays.
SaveResult save(Corpus &corpus);

// Writes the corpus under the name in one of the formats, whole or not at all; an existing file is
// overwritten. A save in the native format makes the name the corpus' name and is a save in every other
// respect; the other formats change nothing. `evaluate` and `go_on` serve the information format.
SaveResult save_as(Corpus &corpus, const std::string &name, CorpusFormat format,
                   const EvaluateFormula &evaluate = {}, const GoOn &go_on = {});

// True if a file of that name can be opened for reading: "Save as" asks before it overwrites it.
bool can_be_read(const std::string &name);

// Writes the corpus in the native format to the file, whole or not at all, with no bookkeeping.
SaveResult write_corpus(const Corpus &corpus, const std::string &name);

// What a successful save of the file does: undo state, unsaved_changes, file_time, and the name.
void note_saved(Corpus &corpus, const std::string &name);

}  // namespace brindle
