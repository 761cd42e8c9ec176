#pragma once
// Plain-English descriptions of the categories of the corpora's tag set.
#include <string_view>

namespace brindle {

// The description of a category: a part of speech or an empty element if its node has no daughters, a phrase
// label if it has. A category that is not in the list gives "Unknown label?!".
std::string_view transl(std::string_view category, bool has_daughters);

}  // namespace brindle
