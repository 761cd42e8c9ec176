#pragma once
// Storing a whole corpus in empty tables.
//
// A node is counted at one place only: a terminal at the link of its word, another node at the link of its
// category, and its mother context in that link's list. Everything else is a sum of these and is added up at
// the end. So is the order: an element's latest rise is the latest of the rises of those that it sums up.
//
// Nearly every look would wait for memory. So a tree is stored in stages, each of which asks memory for what
// the next one will look at, and the trees go through them as on an assembly line: while one is read, those
// read before it stand one at each stage.
#include <array>
#include <vector>

#include "model/node.hpp"
#include "stats/link_records.hpp"

namespace brindle {

// A tree as it has been read: nothing of it is stored, and its nodes' labels are still texts.
struct ReadTree {
    Node *root = nullptr;
    bool checked = false;
    std::vector<Unnamed> labels;  // the texts must live until the tree is stored
    std::vector<Node *> nodes;    // in the order in which they are to be stored
};

// REQUIRES: the tables are empty at its beginning, and nobody reads or changes the statistics otherwise until
// it goes.
class BulkStoring {
  public:
    BulkStoring() = default;
    // Stores what is still under way, and adds up.
    ~BulkStoring();
    BulkStoring(const BulkStoring &) = delete;
    BulkStoring &operator=(const BulkStoring &) = delete;

    // The room for the next tree, emptied; it is the storing's own.
    ReadTree &room();

    // Stores the tree in the room, sooner or later: names the labels, stores the nodes, records their mother
    // contexts in the order of do_with. Sets the nodes' labels, link and lexlink.
    void store();

  private:
    // A node's entries, and the hash of its link in the list of its word or else its category.
    struct Seeker {
        LabelEntry *category;
        LabelEntry *tag;
        LexEntry *word;
        std::uint32_t hash;
    };
    // Where a node's mother context is recorded.
    struct Place {
        Node *node;
        Parents *parents;
        Context context;
        std::uint32_t hash;
    };
    struct Tree : ReadTree {
        std::vector<Seeker> seekers;  // of the nodes
        std::vector<Place> places;    // in the order of do_with
    };
    // A context of a word, and the link of its category and tag, which has the context too.
    struct WordContext {
        const ParentRecord *record;
        LabelLink *link;
    };

    // The stages.
    void fetch_labels(Tree &tree);
    void name(Tree &tree);
    void seek(Tree &tree);
    void fetch_links(Tree &tree);
    void count(Tree &tree);
    void fetch_contexts(Tree &tree);
    void record(Tree &tree);
    static constexpr std::size_t nr_of_stages = 7;

    void advance();
    void count(Node *node, const Seeker &seeker, bool checked);
    void add_up_contexts();

    std::array<Tree, nr_of_stages + 1> trees_;  // those at the stages, and the room: the youngest
    std::size_t youngest_ = 0;
    std::vector<LabelLink *> pairs_;     // all links of categories
    std::vector<LexLink *> lexlinks_;    // all links of words
    std::vector<WordContext> contexts_;  // all contexts of words, in the order in which they first occurred
};

}  // namespace brindle
