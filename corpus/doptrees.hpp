#pragma once
// The DOP formats: every tree as one Prolog-style term tree(Label,[Daughters]), tags replaced by codes.
#include "base/text_sink.hpp"
#include "corpus/codeer.hpp"

namespace brindle {

// Which codes tags get.
enum class DopMode {
    by_rule = 0,  // the codes of EncodingRun::codeer (the second format)
    by_tag = 1,   // the codes of EncodingRun::codeer_old (the first format)
};

// The terms of the node and of its right sisters, up to the first punctuation sister. `tree` is the tree's
// number from 1, for the productions.
void write_dop_tree(const Node *node, TextBuffer &out, DopMode mode, int tree, EncodingRun &codes);

// One tree of a corpus: its term and what follows it, below the extra root "sss" if `augmented`.
void write_dop_entry(const Node *root, TextBuffer &out, DopMode mode, int tree, EncodingRun &codes,
                     bool augmented);

}  // namespace brindle
