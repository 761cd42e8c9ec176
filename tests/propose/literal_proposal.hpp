#pragma once
// The proposal as it is defined: every combination of the daughters' candidates is made, one by one.
// Exponential; for small trees that the real one is held against.
#include <map>
#include <string>
#include <vector>

#include "model/corpus.hpp"

namespace brindle::test {

// What the literal proposal would do to one tree.
struct LiteralProposal {
    bool too_many = false;  // it gave up: more than `limit` candidates at one node; nothing below is valid
    bool has_break = false;
    std::map<const Node *, std::string> tags;
    std::map<const Node *, bool> selected;
};

LiteralProposal propose_literally(const Corpus &corpus, int tree, std::size_t limit);

}  // namespace brindle::test
