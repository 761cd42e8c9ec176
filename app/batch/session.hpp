#pragma once
// The corpus of an action, with what the options say about it.
#include <string_view>
#include <vector>

#include "app/batch/options.hpp"
#include "model/corpus.hpp"
#include "propose/selection.hpp"

namespace brindle::batch {

struct Session {
    // Reads the corpus, with its word graphs if asked for, and shows progress unless told not to. Corpus
    // errors end the program with the reader's message and status 1. The options must outlive the session.
    explicit Session(const Options &options);

    // The tree with that number, counted from 1, as a place in the corpus. A number outside it: UsageError.
    int tree_index(int number) const;
    // The selection options as the batch box's choice, and the 0-based numbers of the trees that it chooses,
    // in the order of processing. Numbers outside the corpus: UsageError.
    SelectionChoice selection_choice() const;
    std::vector<int> selected_trees() const;

    // Writes the text, or the whole corpus in the native format, to the file of -o (whole or not at all) or
    // to standard output. Returns `done`, or `failed` after a message on standard error.
    int put_out(std::string_view text) const;
    int put_out_corpus() const;

    const Options &options;
    Corpus corpus;
};

}  // namespace brindle::batch
