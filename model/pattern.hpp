#pragma once
// The search for nodes by their labels that search and replace uses.
#include <optional>
#include <string>
#include <vector>

#include "model/corpus.hpp"

namespace brindle {

// What a node must carry: its tag, its word and its category.
class Pattern {
  public:
    // The labels themselves; null matches anything. With a kind, the category is that of nodes with a word
    // (TERM) or of nodes without (NONTERM): two different labels, even when they are spelled alike.
    static Pattern exact(const Label *syn, const Label *sem, const Label *lex,
                         std::optional<LabelKind> kind = std::nullopt);
    // Labels that contain the texts; no value matches anything.
    static Pattern substring(std::optional<std::string> syn, std::optional<std::string> sem,
                             std::optional<std::string> lex);

    bool match(const Unit &unit) const;

  private:
    // One label: given, or a text that it contains.
    struct Part {
        const Label *label = nullptr;
        std::optional<std::string> text = {};
        bool match(const Label *other) const;
    };
    Part syn_, sem_, lex_;
    std::optional<LabelKind> kind_;
};

// The nodes of one corpus that match a pattern. Each distinct unit is tested once, however many nodes carry
// it; a node costs one look at its unit's number.
class Matches {
  public:
    // The corpus may be changed meanwhile.
    Matches(const Corpus &corpus, Pattern pattern) : corpus_(corpus), pattern_(std::move(pattern)) {}

    // False: no node of the corpus can match as it is.
    bool any();
    // The first match in document order after `start` (null: from the root on, itself included), null if
    // there is none. REQUIRES: `start` is in the tree of `root`.
    Node *next(Node *root, const Node *start);

  private:
    void test_new_units();

    const Corpus &corpus_;
    Pattern pattern_;
    std::vector<bool> matches_;  // by the unit's number
    bool any_ = false;
};

}  // namespace brindle
