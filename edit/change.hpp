#pragma once
// The one road of changes: every change of a tree or of its mark goes through here, so that the statistics
// are always those of the trees as they are, what undo needs is kept, and whoever listens hears of it.
#include <optional>
#include <string>
#include <string_view>

#include "model/corpus.hpp"

namespace brindle {

// What is changed, and what was there. The texts live as long as the call that is given the change.
struct Change {
    enum class Kind { tag, category, check_mark, subtree };
    Kind kind;
    int tree;                        // 0-based
    Node *node = nullptr;            // null for a check mark; a subtree's top: the new one once it is there
    std::string_view before = {};    // tag ("": none), category, mark ("*" or ""); a subtree's is `replaced`
    std::string_view after = {};     // likewise; a subtree's is its bracketing
    const Node *replaced = nullptr;  // the old top of a subtree, of which nothing has been freed yet
};

struct ChangeListener {
    virtual ~ChangeListener() = default;
    // The change has been made. REQUIRES: the corpus is not changed meanwhile.
    virtual void changed(const Corpus &corpus, const Change &change) = 0;
};

// Tells the corpus' listeners. For those who make changes (edit/) alone.
void tell(Corpus &corpus, const Change &change);

// The road: refuses the change and says why (nothing has happened then), or makes it, corrects every count,
// and tells the listeners of the corpus; its history, if there is one, has noted what was there. `before` and
// `replaced` are found here; of the rest:
//   tag         blanks become '_'; what cannot be written and read back is refused (edit/label_rules.hpp).
//               The tag may be the one that the node has: it counts as changed then, too
//   category    likewise; "" changes nothing. Not kept for undo
//   check_mark  the tree's counts move into or out of the checked ones; nothing if the mark is so already
//   subtree     as the syntax editor's "Ok": refused if the bracketing is not sound; the tree is unchecked
//   first.
//               A bare node at the very end of the text needs a blank or newline behind it
std::optional<std::string> make_change(Corpus &corpus, Change change);

// The same, said shortly.
inline std::optional<std::string> set_tag(Corpus &corpus, Node *node, std::string_view tag) {
    return make_change(corpus, {Change::Kind::tag, node->tree(), node, {}, tag});
}
inline std::optional<std::string> set_category(Corpus &corpus, Node *node, std::string_view category) {
    return make_change(corpus, {Change::Kind::category, node->tree(), node, {}, category});
}
inline void set_checked(Corpus &corpus, int tree, bool checked) {
    make_change(corpus, {Change::Kind::check_mark, tree, nullptr, {}, checked ? "*" : ""});
}
inline std::optional<std::string> replace_subtree(Corpus &corpus, Node *node, std::string_view bracketing) {
    return make_change(corpus, {Change::Kind::subtree, node->tree(), node, {}, bracketing});
}
// Takes the node's tag away if it has one.
inline void clear(Corpus &corpus, Node *node) {
    if (node->sem()) set_tag(corpus, node, "");
}

// Gives the node the tag it had before its latest change; a second call redoes. False: there is nothing to
// undo.
bool undo_last(Corpus &corpus, Node *node);

// Gives the node the tag of the last save and forgets its changes (one unsaved change less). False: it is not
// changed.
bool undo_all(Corpus &corpus, Node *node);

// Selects the node or not as part of a command: undoing the command's step takes that back, too.
void select_in_step(Corpus &corpus, Node *node, bool selected);

// True if n is `top` or lies below it. n may be null.
bool is_below(const Node *top, const Node *n);

}  // namespace brindle
