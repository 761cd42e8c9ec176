#pragma once
// The tree model: one record a node, linked by mother, first daughter and right sister.
#include <cstddef>
#include <cstdint>

#include "model/label.hpp"

namespace brindle {

struct LabelLink;
struct LexLink;

// A node. Labels are interned (model/label.hpp), never owned. A node with a word has no daughters.
struct Node {
    Label *syn = nullptr;       // category; null only while the node is being read
    Label *sem = nullptr;       // semantic tag; null: the node has none
    Label *lex = nullptr;       // word; null: the node is no terminal
    Label *undo_sem = nullptr;  // the tag before the latest change
    Label *orig_sem = nullptr;  // the tag before the first change since the last save
    Node *mother = nullptr;     // null at the root
    Node *dtrs = nullptr;       // first daughter
    Node *sister = nullptr;     // next sister to the right
    // Where the statistics count the node's labels together (stats/links); null while it is not stored.
    LabelLink *link = nullptr;   // its category and tag
    LexLink *lexlink = nullptr;  // its word, category and tag; null: it has no word
    // Results of the layout (display/layout), in pixels of the canvas.
    std::int32_t syn_x = 0;  // where the category's text starts
    std::int32_t sem_x = 0;  // where the tag's text starts
    std::int32_t lex_x = 0;  // where the word's text starts
    std::int32_t x = 0;      // the node's centre
    // Kept by whoever links nodes (the reader, the tree replacement), so that a position costs no walk.
    std::int32_t position = 0;    // 1-based place among the mother's daughters; 0 at a root
    std::int32_t nr_of_dtrs = 0;  // number of daughters
    bool changed = false;         // the tag has been changed since the corpus was last saved
    bool selected = false;
};

// The node's 1-based position among its mother's daughters; 0 for a root.
inline int dtr_nr(const Node *node) {
    return node->position;
}

// The number of daughters of the node's mother, the node included; 0 for a root.
inline int nr_of_sisters(const Node *node) {
    return node->mother ? node->mother->nr_of_dtrs : 0;
}

// A new zeroed node from the program's pool of nodes.
Node *new_node();

// Gives a node back to the pool. Its labels must have been withdrawn from the statistics.
void release_node(Node *node);

// Bytes held by the pool of nodes (for bench/).
std::size_t node_bytes();

// The number of levels above the node: 0 for a root.
int depth_of(const Node *node);

}  // namespace brindle
