#pragma once
// The limits of labels, in bytes with their terminating zero, and the characters that mark labels in the tree
// text.
#include <cstddef>

namespace brindle {

inline constexpr std::size_t MAXSEM = 1024;  // a semantic tag holds at most MAXSEM - 1 bytes
inline constexpr std::size_t MAXSYN = 128;   // a category or a word holds at most MAXSYN - 1 bytes

inline constexpr char START_SEM_TAG = '|';  // opens a semantic tag
inline constexpr char START_LEX_TAG = '/';  // opens a lexical item

}  // namespace brindle
