#pragma once
// The steps by which a subtree is replaced by an edited one; edit/change.hpp goes them.
#include <optional>
#include <string>
#include <string_view>

#include "model/corpus.hpp"

namespace brindle {

class SubtreeReplacement {
  public:
    // Of the subtree of `old`.
    SubtreeReplacement(Corpus &corpus, Node *old) : corpus_(corpus), old_(old) {}

    // Why the bracketing cannot be put there; no value: it can.
    std::optional<std::string> refuse(std::string_view bracketing) const;
    // Puts what the bracketing says in the old subtree's place and returns its top. The old nodes are counted
    // no more, but still there to be looked at. REQUIRES: the bracketing is not refused; the tree is
    // unchecked.
    Node *put(std::string_view bracketing);
    // Takes the old nodes' labels out of the tables, with their undo tags, and frees them.
    void free_old();

  private:
    Node *read(std::string_view bracketing);
    void withdraw_old();
    void attach(Node *fresh);

    Corpus &corpus_;
    Node *old_;
};

}  // namespace brindle
