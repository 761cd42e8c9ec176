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
    // Exact: the labels themselves; null matches anything. With a kind, the category is that of nodes with a
    // word (TERM) or of nodes without (NONTERM): two different labels, even when they are spelled alike.
    static Pattern exact(const Label *syn, const Label *sem, const Label *lex,
                         std::optional<LabelKind> kind = std::nullopt);
    // Substrings; no value matches anything.
    static Pattern substring(std::optional<std::string> syn, std::optional<std::string> sem,
                             std::optional<std::string> lex);
    Pattern(Pattern &&) noexcept;
    Pattern &operator=(Pattern &&) noexcept;
    ~Pattern();

    // The node matches if its tag, its word and its category do, tested in that order.
    bool match(const Node *node) const;

  private:
    friend Node *next_match(const Pattern &pattern, Node *root, const Node *start);

    // What exact mode compares, by value, so that a search touches nothing but the nodes.
    struct Exact {
        const Label *syn, *sem, *lex;
        bool any_kind, with_word;
        bool match(const Node *n) const {
            return (!sem || n->sem == sem) && (!lex || n->lex == lex) && (!syn || n->syn == syn) &&
                   (any_kind || (n->lex != nullptr) == with_word);
        }
    };
    struct Part;
    struct Parts;

    Pattern();
    Exact exact_{};
    std::unique_ptr<Parts> parts_;  // null in exact mode
};

// The first match in document order after `start` (null: from the root on, itself included), null if there is
// none. REQUIRES: `start` is in the tree of `root`.
Node *next_match(const Pattern &pattern, Node *root, const Node *start);

// The same, but null if `start` is not in the tree. Looking that up costs a climb to the root.
Node *is_in_tree(const Pattern &pattern, Node *root, const Node *start);

}  // namespace brindle
