#pragma once
// A long text made by several processors at once, each busy with another part of it.
#include <functional>

#include "base/text_sink.hpp"

namespace brindle {

// Makes one part, and changes nothing that another part's making looks at: several threads call it at once.
using PartWriter = std::function<void(int part, TextBuffer &out)>;

// Hands the parts 0 .. nr_of_parts - 1 of a text to the sink, in their order and to one call at a time; a
// thread whose buffer is full waits until its part's turn has come. False: the sink failed, and what was
// still to come is not made.
bool write_parts(TextSink &sink, int nr_of_parts, const PartWriter &write_part);

}  // namespace brindle
