#pragma once
// Wires the windows to what they do.

namespace brindle {

// Fills the command table (gui/commands_table.hpp). Called once, before the first window is made.
void install_commands();

}  // namespace brindle
