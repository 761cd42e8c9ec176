#pragma once
// Storing a whole corpus in empty tables.
//
// A node is counted at one place only: a terminal at the link of its word, another node at the link of its
// category, and its mother context in that link's list. Everything else is a sum of these and is added up at
// the end. So is the order: an element's latest rise is the latest of the rises of those that it sums up.
#include <span>
#include <vector>

#include "model/node.hpp"
#include "stats/link_records.hpp"

namespace brindle {

// REQUIRES: the tables are empty at its beginning, and nobody reads or changes the statistics otherwise until
// it goes.
class BulkStoring {
  public:
    BulkStoring() = default;
    // Adds up.
    ~BulkStoring();
    BulkStoring(const BulkStoring &) = delete;
    BulkStoring &operator=(const BulkStoring &) = delete;

    // Stores the nodes of a tree, whose labels are set, in their order, then records their mother contexts in
    // the order of do_with, under TREE_CHECKED. Sets the nodes' link and lexlink.
    void store_tree(Node *root, std::span<Node *const> nodes);

  private:
    struct Seeker;
    struct ContextSum {
        const ParentRecord *of_word;
        ParentRecord *of_category;
    };

    void link(std::span<Node *const> nodes);
    void count(Node *node, const Seeker &seeker);
    void record(std::span<Node *const> nodes);
    ParentRecord *new_context(Node *node, const Context &context);

    std::vector<LabelLink *> pairs_;    // all links of categories
    std::vector<LexLink *> lexlinks_;   // all links of words
    std::vector<ContextSum> contexts_;  // all contexts of words
    std::vector<Node *> in_order_;      // of the tree that is stored
};

}  // namespace brindle
