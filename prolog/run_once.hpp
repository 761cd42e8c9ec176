#pragma once
// A program run once on a text: what checks the formulas of the information format.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// Room for a run's output, its terminating zero included.
inline constexpr std::size_t OUTPUT_MAX = 8191;
// The line to show for each chunk of output that was dropped.
inline constexpr std::string_view output_dropped = "Output of program greater then OUTPUT_MAX!";

// What came of a run.
struct RunOutput {
    bool ended = false;      // false: the program was ended by a signal, or could not be forked
    std::string text = {};   // what it wrote on standard output and standard error, as far as there was room
    int dropped_chunks = 0;  // how often `output_dropped` is to be said
};

// Runs the program on the input, in the directory ("" for the current one). Blocks until it has ended; input
// and output may be of any length.
RunOutput run_once(std::string_view input, const std::vector<std::string> &arguments,
                   const std::string &directory);

// Collects what a program has written as far as it has room: cut into chunks of at most 8191 bytes, each
// appended if the whole then has at most 8190. Returns how many chunks did not fit and were dropped.
int collect_output(std::string &output, std::string_view written);

}  // namespace brindle
