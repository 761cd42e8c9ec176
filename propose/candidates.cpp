#include "propose/candidates.hpp"

#include <algorithm>

#include "model/traversal.hpp"

namespace brindle {
namespace {

constexpr std::int32_t few_units = 8;   // a word of so many is not worth an index
constexpr std::uint32_t deepest = 256;  // levels that a question passes down

// The node forgets what was known, but keeps its room.
void clear(ProposalNode &n) {
    n.known.clear();
    n.met.clear();
    n.cursors.clear();
    n.ordered.clear();
    ProposalNode fresh;
    fresh.known.swap(n.known);
    fresh.met.swap(n.met);
    fresh.cursors.swap(n.cursors);
    fresh.ordered.swap(n.ordered);
    n = std::move(fresh);
}

// Clearing takes time for the room, too.
template <class Table>
void forget(Table &table) {
    if (table.empty()) return;
    if (table.bucket_count() > 1 << 12)
        table = Table();
    else
        table.clear();
}

}  // namespace

// ---------------------------------------------------------------- the nodes

// Daughters follow their mothers, so going backwards sets every daughter up before its mother.
void CandidateFinder::take(Node *root) {
    columns_.clear();
    drivers_.clear();
    forget(combined_);
    forget(in_order_);
    add_nodes(root);
    for (std::size_t place = size_; place-- > 0;) set_up(static_cast<std::uint32_t>(place));
}

void CandidateFinder::add_nodes(Node *root) {
    size_ = 0;
    std::vector<std::uint32_t> open;  // the places of the nodes on the way from the root to the present one
    for (Node *node = root; node; node = next_in_document(node, root)) {
        const auto place = static_cast<std::uint32_t>(size_);
        if (size_++ == nodes_.size()) nodes_.emplace_back();
        clear(nodes_[place]);
        nodes_[place].node = node;
        if (node->mother()) nodes_[place].path = path_of_context(node);
        while (!open.empty() && nodes_[open.back()].node != node->mother()) {
            if (nodes_[open.back()].node->sister() == node) nodes_[open.back()].sister = place;
            open.pop_back();
        }
        open.push_back(place);
    }
}

void CandidateFinder::set_up(std::uint32_t place) {
    ProposalNode &n = nodes_[place];
    const Unit *const unit = n.node->unit();
    if (unit->lex) {
        LexEntry *const word = statistics_.word_entry(unit);
        n.origin = Origin::word;
        n.total = word->checked_count;
        n.next_unit = word->units.first;
        if (word->units.length > few_units) n.owner = statistics_.owner_of(word);
        return;
    }
    LabelEntry *const category = statistics_.category_entry(unit);
    n.owner = statistics_.owner_of(category);
    if (n.node->dtrs()) {
        n.origin = Origin::combinations;
        choose_columns(place);
        if (n.nr_of_columns && has_candidates(place)) {
            if (n.height >= deepest) complete(place);
            return;
        }
        n.origin = Origin::over_daughters;
        n.is_complete = false;
        n.height = 0;
        n.patience = mothers_over(n);
    }
    n.total = category->checked_count;
    n.next_unit = category->pairs.first;
}

// The columns are the daughters that have candidates.
void CandidateFinder::choose_columns(std::uint32_t place) {
    ProposalNode &n = nodes_[place];
    n.first_column = static_cast<std::uint32_t>(columns_.size());
    for (std::uint32_t d = place + 1; d != ProposalNode::none; d = nodes_[d].sister) {
        if (!has_candidates(d)) continue;
        columns_.push_back(d);
        n.height = std::max(n.height, nodes_[d].height + 1);
    }
    n.nr_of_columns = static_cast<std::uint32_t>(columns_.size()) - n.first_column;
}

// No set of candidates is so deep that questions about it would need too much stack.
void CandidateFinder::complete(std::uint32_t place) {
    while (hand_out(place)) continue;
    while (order_next(place)) continue;
    nodes_[place].height = 0;
}

// ---------------------------------------------------------------- candidates by their probability

// No candidate from the i-th on is more probable.
double CandidateFinder::at_most(std::uint32_t place, std::size_t i) const {
    const ProposalNode &n = nodes_[place];
    if (i < n.known.size()) return n.known[i].prob;
    if (n.is_complete) return no_candidate;
    if (n.origin == Origin::combinations)
        return n.met.empty() ? n.unmet : std::max(n.met.front().prob, n.unmet);
    return n.next_unit ? share(statistics_.unit(n.next_unit).checked_count, n.total) : no_candidate;
}

// One candidate more is known; false: there is none.
bool CandidateFinder::hand_out(std::uint32_t place) {
    ProposalNode &n = nodes_[place];
    if (n.is_complete) return false;
    const std::size_t before = n.known.size();
    if (n.origin == Origin::combinations)
        hand_out_combination(place);
    else
        hand_out_listed(n);
    n.is_complete = n.known.size() == before;
    return !n.is_complete;
}

// ---------------------------------------------------------------- listed candidates

void CandidateFinder::hand_out_listed(ProposalNode &n) {
    while (n.next_unit) {
        const std::uint32_t number = n.next_unit;
        const Unit &unit = statistics_.unit(number);
        if (unit.checked_count == 0) return;
        if (n.origin == Origin::over_daughters && n.patience == 0) return list_rest(n);
        n.next_unit = unit.by_owner.next;
        if (n.origin == Origin::word && unit.syn != n.node->syn()) continue;
        if (n.origin == Origin::over_daughters && !occurs_over_daughters(n, number, n.patience)) continue;
        n.known.push_back({number, share(unit.checked_count, n.total)});
        return;
    }
}

// Whether the mother occurs over some daughter's category at its place. Each look takes patience.
bool CandidateFinder::occurs_over_daughters(const ProposalNode &n, std::uint32_t unit,
                                            std::uint64_t &patience) const {
    for (const Node *d = n.node->dtrs(); d; d = d->sister()) {
        if (patience > 0) --patience;
        const std::uint32_t owner = statistics_.category_entry(d->unit())->owner;
        if (statistics_.below().below(owner, unit, d->position(), n.node->nr_of_dtrs()).size > 0) return true;
    }
    return false;
}

// As many looks are worth while as there are mothers to be listed.
std::uint64_t CandidateFinder::mothers_over(const ProposalNode &n) {
    std::uint64_t mothers = 0;
    for (const Node *d = n.node->dtrs(); d; d = d->sister())
        mothers += statistics_.below().above(category_owner(d), path_of_context(d)).size;
    return mothers;
}

// What is left of the category's list is mostly others: the mothers over the daughters are listed instead.
void CandidateFinder::list_rest(ProposalNode &n) {
    const ContextsBelow &below = statistics_.below();
    const Unit &from = statistics_.unit(n.next_unit);
    std::vector<std::uint32_t> units;
    for (const Node *d = n.node->dtrs(); d; d = d->sister())
        for (std::uint32_t m = below.above(category_owner(d), path_of_context(d)).first; m;
             m = below.next_mother(m))
            if (!Statistics::ranks_before(unit(below.mother_of(m)), from))
                units.push_back(below.mother_of(m));
    std::sort(units.begin(), units.end(), [this](std::uint32_t a, std::uint32_t b) {
        return Statistics::ranks_before(unit(a), unit(b));
    });
    units.erase(std::unique(units.begin(), units.end()), units.end());
    for (const std::uint32_t u : units) n.known.push_back({u, share(unit(u).checked_count, n.total)});
    n.next_unit = 0;
}

double CandidateFinder::listed_prob(const ProposalNode &n, std::uint32_t number) const {
    const Unit &u = unit(number);
    std::uint64_t patience = 0;
    if (n.origin == Origin::word && u.syn != n.node->syn()) return no_candidate;
    if (n.origin == Origin::over_daughters && !occurs_over_daughters(n, number, patience))
        return no_candidate;
    return share(u.checked_count, n.total);
}

}  // namespace brindle
