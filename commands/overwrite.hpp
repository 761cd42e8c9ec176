#pragma once
// What the user is asked when a file is to be written under a typed name.
#include <string>

#include "gui/tree_window.hpp"

namespace brindle {

// True if nothing of that name can be read, or if the user says that it may be overwritten. "No" shows the
// requestor again, "Cancel" leaves it closed.
bool may_write(const std::string &name, tk::CommandFrame &requestor, TreeWindow &tw);

}  // namespace brindle
