#pragma once
// The pools of the statistics' records; for stats/ alone.
#include "model/pool.hpp"
#include "stats/link_records.hpp"

namespace brindle {

extern Pool<LabelLink> label_links;
extern Pool<LexLink> lex_links;
extern Pool<ParentRecord> parent_records;

// A link of a category and a tag, with its twin, not counted yet. REQUIRES: there is none.
LabelLink *new_pair(LabelEntry *category, LabelEntry *tag);

}  // namespace brindle
