#pragma once
// A program run once on a text: what checks the formulas of the information format.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// Room for a run's output, its terminating zero included.
inline constexpr std::size_t OUTPUT_MAX = 8191;

// Runs the program on the input, in the directory ("" for the current one), and puts what it wrote on
// standard output and standard error into `output`. Blocks until it has ended; input and output may be of any
// length. False: it was ended by a signal (output is empty then) or could not be forked.
bool fork_n_wait(std::string_view input, std::string &output, const std::vector<std::string> &arguments,
                 const std::string &directory);

// Collects what a program has written as far as it has room: cut into chunks of at most 8191 bytes, each
// appended if the whole then has at most 8190; a chunk that does not fit is dropped with a line on standard
// output.
void read_output(std::string &output, std::string_view written);

}  // namespace brindle
