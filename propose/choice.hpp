#pragma once
// Which of their candidates the nodes of a tree take.
#include "propose/candidates.hpp"

namespace brindle {

// Decides for every node of the tree in hand which of its candidates is proposed: the root's most probable
// one, below a candidate built from the daughters those that it was built from, and below any other each
// daughter's own most probable one. Among equally probable ones it is always the first in the order of the
// enumeration, whatever the products of its parts were rounded to.
void choose(CandidateFinder &finder);

}  // namespace brindle
