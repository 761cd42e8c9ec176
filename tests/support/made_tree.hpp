#pragma once
// Trees made for tests, without a file, a forest or statistics.
#include <random>
#include <string>
#include <string_view>

#include "model/forest.hpp"

namespace brindle::test {

// A tree that lives as long as this object. The text is a bracketing as in a corpus file, for instance
// "(S|f(d1,d2) (NP/john)(VP/walks))"; it must be sound.
class MadeTree {
  public:
    explicit MadeTree(std::string_view bracketing);
    explicit MadeTree(Node *root);
    ~MadeTree();
    MadeTree(const MadeTree &) = delete;
    MadeTree &operator=(const MadeTree &) = delete;

    // The node that a path names ("." is the root); the test fails if there is none.
    Node *at(std::string_view path) const;

    TreeEntry entry;
};

// Appends a daughter to the mother.
Node *add_daughter(Node *mother, Node *daughter);

// A node with these labels; "" for no tag, no word.
Node *make_node(std::string_view syn, std::string_view sem = "", std::string_view lex = "");

// How a random tree is made.
struct RandomTreeShape {
    int max_nodes = 40;
    int max_daughters = 4;
    int punctuation_percent = 10;
    int tag_percent = 40;
    int word_percent = 80;  // of leaves
    int longest_label = 12;
    int longest_mother_tag = 0;  // more than 0: every mother gets a tag of up to that length
    int spine_percent = 0;       // how often the next node goes below the newest one, which makes deep trees
};
Node *random_tree(std::mt19937 &random, const RandomTreeShape &shape);

}  // namespace brindle::test
