#include "model/unit.hpp"

namespace brindle {
namespace {

std::uint64_t number_of(const Label *label) {
    return reinterpret_cast<std::uintptr_t>(label);
}

std::uint32_t hash_of(const Label *syn, const Label *sem, const Label *lex, bool terminal) {
    return mix_hash(number_of(syn) + terminal, number_of(sem), number_of(lex));
}

}  // namespace

Unit *Units::find(const Label *syn, const Label *sem, const Label *lex, bool terminal) const {
    const auto is_it = [&](std::uint32_t number) {
        const Unit &u = units_[number];
        return u.syn == syn && u.sem == sem && u.lex == lex && u.terminal == terminal;
    };
    const std::uint32_t number = index_.find(hash_of(syn, sem, lex, terminal), is_it);
    return number ? &units_[number] : nullptr;
}

Unit *Units::find(const Label *syn, const Label *sem, const Label *lex) const {
    return find(syn, sem, lex, lex != nullptr);
}

Unit *Units::find_pair(const Label *syn, LabelKind kind, const Label *sem) const {
    return find(syn, sem, nullptr, kind == LabelKind::TERM);
}

void Units::fetch_slots(const Label *syn, const Label *sem, const Label *lex) const {
    index_.fetch_slot(hash_of(syn, sem, lex, lex != nullptr));
    if (lex) index_.fetch_slot(hash_of(syn, sem, nullptr, true));
}

void Units::fetch_pair(const Label *syn, const Label *sem, const Label *lex) const {
    if (lex) fetch_ahead(&units_[index_.guess(hash_of(syn, sem, nullptr, true))]);
}

Unit *Units::intern(Label *syn, Label *sem, Label *lex) {
    return intern(syn, sem, lex, lex != nullptr);
}

Unit *Units::intern(Label *syn, Label *sem, Label *lex, bool terminal) {
    if (Unit *unit = find(syn, sem, lex, terminal)) return unit;
    Unit *const pair = lex ? intern(syn, sem, nullptr, true) : nullptr;
    const std::uint32_t number = units_.add();
    Unit *const unit = &units_[number];
    unit->syn = syn;
    unit->sem = sem;
    unit->lex = lex;
    unit->terminal = terminal;
    unit->pair = pair ? pair : unit;
    index_.insert(number, hash_of(syn, sem, lex, terminal));
    return unit;
}

}  // namespace brindle
