#pragma once
// The pattern search over a tree that search and replace uses.
#include <memory>
#include <optional>
#include <string>

#include "model/node.hpp"

namespace brindle {

// What a node must carry. In exact mode a label matches by identity; otherwise it matches when it contains
// the text, and each distinct label is tested once, however many nodes carry it.
class Pattern {
  public:
    // Exact: the labels themselves; null matches anything.
    static Pattern exact(const Label *syn, const Label *sem, const Label *lex);
    // Substrings; no value matches anything.
    static Pattern substring(std::optional<std::string> syn, std::optional<std::string> sem,
                             std::optional<std::string> lex);
    Pattern(Pattern &&) noexcept;
    Pattern &operator=(Pattern &&) noexcept;
    ~Pattern();

    // The node matches if its tag, its word and its category do, tested in that order.
    bool match(const Node *node) const;

  private:
    Pattern();
    struct Field;
    struct Fields;
    std::unique_ptr<Fields> fields_;
};

// The first match in document order in the tree of `root`, after `start` (null: from the root on, itself
// included). Null if nothing matches or `start` is not in the tree.
Node *is_in_tree(const Pattern &pattern, Node *root, const Node *start);

}  // namespace brindle
