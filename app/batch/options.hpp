#pragma once
// What a person can ask of brindle-batch: the options as parsed.
#include <optional>
#include <string>

namespace brindle::batch {

// Exit statuses.
inline constexpr int done = 0;
inline constexpr int failed = 1;  // an input is in error, or output could not be written whole
inline constexpr int misused = 2;

struct Options {
    // Common to all actions.
    std::string corpus;  // for `validate`: the file with the bracketing
    std::string wordgraphs;
    std::string output = "-";
    bool output_given = false;  // `-o -` was said, or a file named
    bool quiet = false;
    // The selection; `selecting` is set when any of these was given.
    bool selecting = false;
    std::string trees = "both";
    std::optional<int> from, to, random;
    unsigned seed = 1;
    // Of single actions.
    std::string format = "atis", report, script, predicate, prolog, kind, replace, with, size = "default";
    std::string syn, lex, sem, node = ".";
    bool roots = false, substring = false, tables = false, punctuation = false;
    int tree = 1, start = 1;
};

// A mistake in the command line that only the corpus shows (a tree number too high): main prints it with the
// usage line and exits with 2.
struct UsageError {
    std::string message;
};

}  // namespace brindle::batch
