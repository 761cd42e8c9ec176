#pragma once
// The tree model: one record a node, linked by mother, first daughter and right sister.
#include <cstddef>
#include <cstdint>

#include "base/growing_array.hpp"
#include "model/unit.hpp"

namespace brindle {

// A node: 32 bytes. Its labels are those of its unit. A node with a word has no daughters. The links are kept
// as distances within the array of nodes, so that they need half the room of addresses and no base.
class Node {
  public:
    Unit *unit() const { return unit_; }
    Label *syn() const { return unit_->syn; }  // category
    Label *sem() const { return unit_->sem; }  // semantic tag; null: the node has none
    Label *lex() const { return unit_->lex; }  // word; null: the node is no terminal

    Node *mother() const { return at(mother_); }  // null at the root
    Node *dtrs() const { return at(dtrs_); }      // first daughter
    Node *sister() const { return at(sister_); }  // next sister to the right

    // 1-based place among the mother's daughters; 0 at a root.
    std::int32_t position() const { return static_cast<std::int32_t>(position_); }
    std::int32_t nr_of_dtrs() const { return static_cast<std::int32_t>(nr_of_dtrs_); }
    // The 0-based number of the node's tree.
    std::int32_t tree() const { return tree_; }

    bool selected() const { return selected_; }
    void select(bool selected) { selected_ = selected; }
    // The tag has been changed since the corpus was last saved.
    bool changed() const { return changed_; }

    // For whoever builds or changes trees: the reader, and edit/ on the one road of changes.
    void set_unit(Unit *unit) { unit_ = unit; }
    void set_changed(bool changed) { changed_ = changed; }
    void set_tree(int tree) { tree_ = tree; }
    void set_mother(const Node *node) { mother_ = distance_to(node); }
    void set_dtrs(const Node *node) { dtrs_ = distance_to(node); }
    void set_sister(const Node *node) { sister_ = distance_to(node); }
    void set_position(std::uint32_t position) { position_ = position & 0x7fffffffu; }
    void set_nr_of_dtrs(std::uint32_t number) { nr_of_dtrs_ = number & 0x7fffffffu; }

  private:
    Node *at(std::int32_t distance) const { return distance ? const_cast<Node *>(this) + distance : nullptr; }
    std::int32_t distance_to(const Node *node) const {
        return node ? static_cast<std::int32_t>(node - this) : 0;
    }

    Unit *unit_;
    std::int32_t mother_;
    std::int32_t dtrs_;
    std::int32_t sister_;
    std::int32_t tree_;
    std::uint32_t position_ : 31;
    std::uint32_t selected_ : 1;
    std::uint32_t nr_of_dtrs_ : 31;
    std::uint32_t changed_ : 1;
};
static_assert(sizeof(Node) == 32);

// The nodes of one corpus.
class Nodes {
  public:
    // A new zeroed node.
    Node *make() { return free_ ? reuse() : &nodes_[nodes_.add()]; }
    // Takes a node back. Nothing may refer to it any more.
    void release(Node *node);

    Node &operator[](std::uint32_t number) { return nodes_[number]; }
    std::uint32_t number_of(const Node *node) const { return nodes_.number_of(node); }
    // Bytes held.
    std::size_t bytes() const { return nodes_.bytes(); }

  private:
    Node *reuse();

    GrowingArray<Node> nodes_;
    Node *free_ = nullptr;  // linked by sister
};

// The number of levels above the node: 0 for a root.
int depth_of(const Node *node);

}  // namespace brindle
