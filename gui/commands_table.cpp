#include "gui/commands_table.hpp"

namespace brindle {

constinit Commands commands;

}  // namespace brindle
