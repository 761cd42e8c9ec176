#pragma once
// Which node, and which line of its text, lies under a point of the canvas.
#include "display/layout.hpp"

namespace brindle {

// The line of a node that was hit; the numbers of the categories and of the tag are those of the label kinds.
enum class InfoMode : int {
    none = 0,
    sem = 2,      // the tag's line
    lex = 3,      // a terminal's word
    nonterm = 4,  // the category of a node without a word
    term = 5,     // the category of a node with a word
};

struct Hit {
    Node *node = nullptr;  // null: nothing there
    InfoMode mode = InfoMode::none;
};

// What lies at (x, y) of a laid-out tree. `text_height` is the height of "H" in the window's font; `params`
// are those that the tree was laid out with. Nodes that are hidden as punctuation are never hit.
Hit find(const TreeLayout &layout, int x, int y, int text_height, const LayoutParams &params);

// Which text of a node a search asks for: on its own level the category's line or the tag's (each as wide as
// the wider of the two), and its word.
enum class HitKind : int { category = 1, tag = 2, word = 3 };

// The rightmost shown node of a level whose text spans x, symmetrical about the node's centre; null: none.
Node *searchpos(HitKind kind, int x, int level, const TreeLayout &layout);

}  // namespace brindle
