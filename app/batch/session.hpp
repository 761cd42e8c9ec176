#pragma once
// What every action does around its work: read the corpus, look trees and nodes up, write the result.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/batch/options.hpp"
#include "model/node.hpp"
#include "model/text_sink.hpp"
#include "propose/selection.hpp"

namespace brindle::batch {

// Reads the corpus, with its word graphs if asked for, and shows progress unless told not to. Corpus errors
// end the program with the reader's message and status 1.
void load(const Options &options);

// The tree with that number, counted from 1, as a place in the forest. A number outside the corpus:
// UsageError.
int tree_index(int number);

// The selection options as the batch box's choice. Numbers outside the corpus: UsageError.
SelectionChoice selection_choice(const Options &options);

// The 0-based numbers of the selected trees in the order of processing. Numbers outside the corpus:
// UsageError.
std::vector<int> selected_trees(const Options &options);

// Writes the text to the file of -o (whole or not at all) or to standard output. Returns `done`, or `failed`
// after a message on standard error.
int put_out(const Options &options, std::string_view text);
int put_out(const std::string &name, std::string_view text);

// Lets `produce` write into the named file or standard output; false: it has failed.
int write_to(const std::string &name, const std::function<bool(TextSink &)> &produce);

// Writes the whole corpus in the native format, as put_out does.
int put_out_corpus(const Options &options);

// What to say when the named output could not be written; returns `failed`.
int told(const std::string &name, const std::string &reason);

// A message on standard error, "brindle-batch: <message>".
void complain(std::string_view message);

// The whole of a file, or of standard input for "-". False after a message if it cannot be read.
bool take_in(const std::string &name, std::string &text);

// A notice's text for a terminal: its own line breaks (a line of an ESC alone, then blanks and tabs) stand as
// they are, other control characters are made visible.
std::string for_terminal(std::string_view notice);

}  // namespace brindle::batch
