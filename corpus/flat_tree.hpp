#pragma once
// One tree as a list of its nodes, on its way from a text into a corpus.
#include <cstdint>
#include <vector>

namespace brindle {

class Node;

// Nodes name each other by their places in the list.
struct FlatNode {
    static constexpr std::uint32_t none = ~0u;

    const char *token;       // where its token starts
    std::uint32_t size;      // bytes of the token
    std::uint32_t hash;      // of the token
    std::uint32_t mother;    // or none
    std::uint32_t left;      // the sister to the left, or none
    std::uint32_t last_dtr;  // or none
    std::uint32_t position;  // 1-based place among the mother's daughters; 0 at the top
    std::uint32_t nr_of_dtrs;
    std::uint32_t unit;  // its number; 0: not known yet
    bool bracketed;
    Node *node;  // in the corpus; null: not made yet
};

// Filled in the order of the text; open, close and leaf as parse_node means them (corpus/grammar.hpp).
class FlatTree {
  public:
    std::vector<FlatNode> nodes;
    std::vector<std::uint32_t> completed;  // all nodes in the order in which they were complete

    void clear() {
        nodes.clear();
        completed.clear();
        open_ = FlatNode::none;
    }
    // A new node below the open one.
    FlatNode &add(const char *token, std::uint32_t size, bool bracketed) {
        const auto place = static_cast<std::uint32_t>(nodes.size());
        std::uint32_t left = FlatNode::none, position = 0;
        if (open_ != FlatNode::none) {
            FlatNode &mother = nodes[open_];
            left = mother.last_dtr;
            mother.last_dtr = place;
            position = ++mother.nr_of_dtrs;
        }
        nodes.push_back({token, size, 0, open_, left, FlatNode::none, position, 0, 0, bracketed, nullptr});
        return nodes.back();
    }
    void open() { open_ = last(); }
    void close() {
        completed.push_back(open_);
        open_ = nodes[open_].mother;
    }
    void leaf() { completed.push_back(last()); }

  private:
    std::uint32_t last() const { return static_cast<std::uint32_t>(nodes.size()) - 1; }

    std::uint32_t open_ = FlatNode::none;
};

}  // namespace brindle
