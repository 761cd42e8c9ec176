#pragma once
// Trees made without the corpus reader, so that the tests of the statistics stand on their own.
#include <string_view>

namespace brindle::test {

// Reads well-formed trees with their stars, appends them to the forest and stores them in the statistics, in
// the order of the corpus reader. Text that it does not understand ends the test program.
void read_trees(std::string_view text);

}  // namespace brindle::test
