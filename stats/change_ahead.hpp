#pragma once
// A change of one tag looks at some twenty records, each named by another one, and in a large corpus nearly
// all of them have to come from memory. Asked for one after another they would take most of the change's
// time; here the ways through them go side by side.
#include <string_view>

#include "model/node.hpp"

namespace brindle {

// Asks memory for what giving the node this tag will look at. Changes nothing. REQUIRES: the node is stored.
void fetch_change_ahead(const Node *node, std::string_view tag);

}  // namespace brindle
