#pragma once
// Which Prolog runs beside the program.
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// The words of a command line: separated by blanks, kept together by single or double quotes. No shell is
// involved.
std::vector<std::string> command_words(std::string_view command);

// The command of the child: the words of the variable BRINDLE_PROLOG if it has any; else SWI-Prolog with our
// bridge file and the corpus's name when both are found; else the stand-in.
std::vector<std::string> default_child(const std::string &corpus);

// The stand-in where there is no Prolog, "cat": it takes every query, and answers none with a prompt.
std::vector<std::string> no_prolog_child();

// The full name of prolog/bridge.pl: installed beside the program, in its source tree, or "" when there is
// none.
std::string find_bridge();

// True if the program is on the search path (or, with a slash in it, is where it says).
bool is_on_path(const std::string &program);

}  // namespace brindle
