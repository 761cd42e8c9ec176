#pragma once
// The actions. Each reads its corpus, works on it, and writes what there is to write; it returns the exit
// status.
#include <span>
#include <string>
#include <string_view>

#include "app/batch/options.hpp"
#include "model/corpus.hpp"

namespace brindle::batch {

// Which options an action takes, beside the common ones.
enum Takes : unsigned {
    nothing_more = 0,
    selection = 1,
    write_format = 2,
    report_file = 4,
    filter_options = 8,
    search_options = 16,
    script_file = 32,
    one_tree = 64,
    node_path = 128,
    punctuation_flag = 256,
    size_choice = 512,
    no_corpus = 1024,
};

struct Action {
    const char *name;
    const char *help;     // one line for --help
    const char *details;  // more, for ACTION --help
    unsigned takes;
    int (*run)(const Options &);
};

// All actions, in the order of --help.
std::span<const Action> actions();

// listings.cpp: what tells about a corpus and changes nothing.
int run_info(const Options &options);      // lines "name TAB value"
int run_tables(const Options &options);    // the label statistics, whole
int run_latex(const Options &options);     // the document of a subtree, every node of it selected
int run_layout(const Options &options);    // every byte of text is taken as 8 pixels wide
int run_validate(const Options &options);  // the message on standard error, if there is one

// The text of `tables`, also for `edit --tables`.
std::string tables_text(Corpus &corpus);

// write_action.cpp: the corpus or a selection of its trees in one of the formats of "Save as".
int run_write(const Options &options);

// runs.cpp: what works through a selection of trees and then writes the whole corpus.
int run_check(const Options &options);
int run_uncheck(const Options &options);
int run_propose(const Options &options);
// With a report; the corpus only if -o was given.
int run_evaluate(const Options &options);
// An expansion error ends the run after its tree and makes the status 1; the corpus is written all the same.
int run_expand(const Options &options);

// filter.cpp: starts Prolog, sends it the tags of the selected trees one by one, and writes the whole corpus.
// Without a Prolog that answers: a message, status 1, nothing written.
int run_filter(const Options &options);

// edit_script.cpp: runs the script and writes the corpus (or, with --tables, the statistics). A line that
// cannot be carried out is told as "FILE:LINE: message"; then nothing is written and the status is 1.
int run_edit(const Options &options);
// Carries out one line. Returns "" or what is wrong with it; then nothing has changed.
std::string carry_out(Corpus &corpus, std::string_view line);

// search_action.cpp: writes a line a match in search order: TREE, PATH, category, tag and word, with tabs
// between them. With --replace: replaces all and writes the whole corpus instead. Refusals go to standard
// error; the status is then 1.
int run_search(const Options &options);

}  // namespace brindle::batch
