#include "model/pattern.hpp"

#include <array>
#include <cstdint>
#include <utility>

#include <tsl/robin_map.h>

#include "model/text.hpp"
#include "model/traversal.hpp"

namespace brindle {

// One field of a substring pattern, with what is known of the labels met so far: the latest answers in a
// small table, one look away, all of them in a map behind it.
struct Pattern::Part {
    std::optional<std::string> text;

    bool match(const Label *label) {
        if (!text) return true;
        if (!label) return false;
        Answer &latest = latest_[(reinterpret_cast<std::uintptr_t>(label) >> 4) % latest_.size()];
        if (latest.label != label) latest = {label, ask(label)};
        return latest.contains;
    }

  private:
    struct Answer {
        const Label *label = nullptr;
        bool contains = false;
    };

    bool ask(const Label *label) {
        const auto [at, is_new] = all_.try_emplace(label, false);
        if (is_new) at.value() = substr(*text, label->view());
        return at->second;
    }

    std::array<Answer, 1024> latest_{};
    tsl::robin_map<const Label *, bool> all_;
};

struct Pattern::Parts {
    Part syn, sem, lex;
    bool match(const Node *n) { return sem.match(n->sem) && lex.match(n->lex) && syn.match(n->syn); }
};

Pattern::Pattern() = default;
Pattern::Pattern(Pattern &&) noexcept = default;
Pattern &Pattern::operator=(Pattern &&) noexcept = default;
Pattern::~Pattern() = default;

Pattern Pattern::exact(const Label *syn, const Label *sem, const Label *lex, std::optional<LabelKind> kind) {
    Pattern pattern;
    pattern.exact_ = {syn, sem, lex, !kind, kind == LabelKind::TERM};
    return pattern;
}

Pattern Pattern::substring(std::optional<std::string> syn, std::optional<std::string> sem,
                           std::optional<std::string> lex) {
    Pattern pattern;
    pattern.parts_ = std::make_unique<Parts>();
    pattern.parts_->syn.text = std::move(syn);
    pattern.parts_->sem.text = std::move(sem);
    pattern.parts_->lex.text = std::move(lex);
    return pattern;
}

bool Pattern::match(const Node *node) const {
    return parts_ ? parts_->match(node) : exact_.match(node);
}

namespace {

template <class Match>
Node *first_match(Node *root, const Node *start, Match &&match) {
    for (Node *n = start ? next_in_document(start, root) : root; n; n = next_in_document(n, root))
        if (match(n)) return n;
    return nullptr;
}

}  // namespace

Node *next_match(const Pattern &pattern, Node *root, const Node *start) {
    if (pattern.parts_)
        return first_match(root, start, [&](const Node *n) { return pattern.parts_->match(n); });
    return first_match(root, start, [exact = pattern.exact_](const Node *n) { return exact.match(n); });
}

Node *is_in_tree(const Pattern &pattern, Node *root, const Node *start) {
    const Node *top = start;
    while (top && top->mother) top = top->mother;
    return top && top != root ? nullptr : next_match(pattern, root, start);
}

}  // namespace brindle
