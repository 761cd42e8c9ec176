#pragma once
// The changes themselves, behind the road (edit/change.hpp) and the history: each corrects every count and
// tells the listeners. Nothing here refuses anything, and nothing here is noted for the history.
#include "model/corpus.hpp"

namespace brindle {

// Gives the node the tag (null: none), whatever it had. What undo keeps of the node stays as it is.
void put_tag(Corpus &corpus, Node *node, Label *tag);
void put_category(Corpus &corpus, Node *node, Label *category);
// REQUIRES: the tree's mark is another.
void put_mark(Corpus &corpus, int tree, bool checked);

// Keeps for the per-node undo the tag that the node is about to lose; the node counts as changed then.
void keep_for_undo(Corpus &corpus, Node *node);
// Gives the node these undo tags in place of those that it has; their entries are made if they have gone.
void put_undo_tags(Corpus &corpus, const Node *node, UndoTags tags);

}  // namespace brindle
