#include "model/pattern.hpp"

#include <utility>

#include <tsl/robin_map.h>

#include "model/text.hpp"
#include "model/traversal.hpp"

namespace brindle {

struct Pattern::Field {
    const Label *label = nullptr;     // exact mode
    std::optional<std::string> part;  // substring mode
    mutable tsl::robin_map<const Label *, bool> tested;

    bool match(const Label *text) const {
        if (label) return text == label;
        if (!part) return true;
        if (!text) return false;
        const auto [at, is_new] = tested.try_emplace(text, false);
        if (is_new) at.value() = substr(*part, text->view());
        return at->second;
    }
};

struct Pattern::Fields {
    Field syn, sem, lex;
};

Pattern::Pattern() : fields_(std::make_unique<Fields>()) {}
Pattern::Pattern(Pattern &&) noexcept = default;
Pattern &Pattern::operator=(Pattern &&) noexcept = default;
Pattern::~Pattern() = default;

Pattern Pattern::exact(const Label *syn, const Label *sem, const Label *lex) {
    Pattern pattern;
    pattern.fields_->syn.label = syn;
    pattern.fields_->sem.label = sem;
    pattern.fields_->lex.label = lex;
    return pattern;
}

Pattern Pattern::substring(std::optional<std::string> syn, std::optional<std::string> sem,
                           std::optional<std::string> lex) {
    Pattern pattern;
    pattern.fields_->syn.part = std::move(syn);
    pattern.fields_->sem.part = std::move(sem);
    pattern.fields_->lex.part = std::move(lex);
    return pattern;
}

bool Pattern::match(const Node *node) const {
    return fields_->sem.match(node->sem) && fields_->lex.match(node->lex) && fields_->syn.match(node->syn);
}

Node *is_in_tree(const Pattern &pattern, Node *root, const Node *start) {
    if (start) {
        const Node *top = start;
        while (top->mother) top = top->mother;
        if (top != root) return nullptr;
    }
    for (Node *n = start ? next_in_document(start, root) : root; n; n = next_in_document(n, root))
        if (pattern.match(n)) return n;
    return nullptr;
}

}  // namespace brindle
