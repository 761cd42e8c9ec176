#pragma once
// Names of files as they are typed.
#include <string>

namespace brindle {

// Completes the last part of the name by what all files that begin with it have in common, and by "/" when
// that is one directory. Names that begin with a dot are offered only to a part that begins with one. The
// name itself when nothing fits it or nothing can be added.
std::string complete_file_name(const std::string &typed);

}  // namespace brindle
