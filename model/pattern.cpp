#include "model/pattern.hpp"

#include <utility>

#include "base/text.hpp"
#include "model/traversal.hpp"

namespace brindle {

Pattern Pattern::exact(const Label *syn, const Label *sem, const Label *lex, std::optional<LabelKind> kind) {
    Pattern pattern;
    pattern.syn_.label = syn;
    pattern.sem_.label = sem;
    pattern.lex_.label = lex;
    pattern.kind_ = kind;
    return pattern;
}

Pattern Pattern::substring(std::optional<std::string> syn, std::optional<std::string> sem,
                           std::optional<std::string> lex) {
    Pattern pattern;
    pattern.syn_.text = std::move(syn);
    pattern.sem_.text = std::move(sem);
    pattern.lex_.text = std::move(lex);
    return pattern;
}

bool Pattern::Part::match(const Label *other) const {
    if (label) return other == label;
    return !text || (other && substr(*text, other->view()));
}

bool Pattern::match(const Unit &unit) const {
    return sem_.match(unit.sem) && lex_.match(unit.lex) && syn_.match(unit.syn) &&
           (!kind_ || unit.category_kind() == *kind_);
}

void Matches::test_new_units() {
    for (auto number = static_cast<std::uint32_t>(matches_.size()); number < corpus_.units.end(); ++number) {
        const Unit &unit = corpus_.units[number];
        const bool is_of_nodes = number > 0 && (unit.lex || !unit.terminal);
        matches_.push_back(is_of_nodes && pattern_.match(unit));
        any_ = any_ || matches_.back();
    }
}

bool Matches::any() {
    test_new_units();
    return any_;
}

Node *Matches::next(Node *root, const Node *start) {
    if (!any()) return nullptr;
    for (Node *n = start ? next_in_document(start, root) : root; n; n = next_in_document(n, root))
        if (matches_[corpus_.units.number_of(n->unit())]) return n;
    return nullptr;
}

}  // namespace brindle
