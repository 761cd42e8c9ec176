#pragma once
// The label tables as text, to compare two states of them whatever the order in which they came about.
#include <map>
#include <string>

namespace brindle::test {

// Every entry, link and mother context by name with its "count(checked count)"; the references of the
// forest's undo fields are left out.
using TableImage = std::map<std::string, std::string>;
TableImage table_image();

// What differs between two images, a line each; "" when they are equal.
std::string difference(const TableImage &is, const TableImage &should_be);

}  // namespace brindle::test
