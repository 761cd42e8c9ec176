// Candidates that are combinations of the daughters' candidates.
#include <algorithm>

#include "propose/candidates.hpp"

namespace brindle {
namespace {

constexpr std::uint64_t few_mothers = 16;  // a column of so many is the only one that is asked for mothers
constexpr std::size_t most_drivers = 4;    // else so many are
constexpr std::uint32_t few_below = 8;     // so many units below a mother are gone through rather than ...

constexpr auto less_probable = [](const Candidate &a, const Candidate &b) { return a.prob < b.prob; };
constexpr auto contributes_less = [](const ProposalNode::Cursor &a, const ProposalNode::Cursor &b) {
    return a.value < b.value;
};

}  // namespace

// ---------------------------------------------------------------- candidates by their probability

void CandidateFinder::hand_out_combination(std::uint32_t place) {
    ProposalNode &n = nodes_[place];
    while (!n.all_met && (n.met.empty() || n.met.front().prob < n.unmet)) meet_more(place);
    if (n.met.empty()) return;
    std::pop_heap(n.met.begin(), n.met.end(), less_probable);
    n.known.push_back(n.met.back());
    n.met.pop_back();
}

// Meets the next mothers of the columns that drive. When one of them has no more, all are met, for a
// candidate is in every column.
void CandidateFinder::meet_more(std::uint32_t place) {
    ProposalNode &n = nodes_[place];
    if (n.nr_of_drivers == 0) choose_drivers(n);
    for (std::uint32_t i = 0; i < n.nr_of_drivers; ++i) {
        const std::uint32_t driver = drivers_[n.first_driver + i];
        std::uint32_t mother;
        double contributes;
        if (next_mother(driver, mother, contributes)) combined(place, mother, driver, contributes);
        if (column_at_most(driver) >= 0.0) continue;
        n.all_met = true;
        n.unmet = no_candidate;
        return;
    }
    n.unmet = 1.0;
    for (const std::uint32_t d : columns(n)) n.unmet = column_at_most(d) * n.unmet;
}

void CandidateFinder::choose_drivers(ProposalNode &n) {
    std::vector<std::pair<std::uint64_t, std::uint32_t>> by_size;
    for (const std::uint32_t d : columns(n)) by_size.push_back({mothers_at_most(d), d});
    std::sort(by_size.begin(), by_size.end());
    n.first_driver = static_cast<std::uint32_t>(drivers_.size());
    n.nr_of_drivers = static_cast<std::uint32_t>(
        by_size.front().first <= few_mothers ? 1 : std::min(by_size.size(), most_drivers));
    for (std::uint32_t i = 0; i < n.nr_of_drivers; ++i) drivers_.push_back(by_size[i].second);
}

// How many mothers the column has at most.
std::uint64_t CandidateFinder::mothers_at_most(std::uint32_t place) {
    const ProposalNode &n = nodes_[place];
    if (!n.owner)
        while (hand_out(place)) continue;
    std::uint64_t mothers = statistics_.below().above(category_owner(n.node), n.path).size;
    if (!n.is_complete) return mothers;
    std::uint64_t of_units = 0;
    for (const Candidate &c : n.known) of_units += static_cast<std::uint64_t>(unit(c.unit).contexts.length);
    return std::min(mothers, of_units);
}

// ---------------------------------------------------------------- candidates by their tags

// The probability of the node's candidate with that tag, or no_candidate.
double CandidateFinder::prob_of(std::uint32_t place, std::uint32_t unit) {
    const ProposalNode &n = nodes_[place];
    return n.origin == Origin::combinations ? combined(place, unit, place, 0.0) : listed_prob(n, unit);
}

// The same for combinations; what the column `from` contributes is known. A candidate that is new is met.
double CandidateFinder::combined(std::uint32_t place, std::uint32_t unit, std::uint32_t from,
                                 double contributes) {
    const auto known = combined_.find({place, unit});
    if (known != combined_.end()) return known->second;
    ProposalNode &n = nodes_[place];
    if (n.all_met) return no_candidate;
    const double prob = product(n, unit, from, contributes);
    combined_.emplace(Tagged{place, unit}, prob);
    if (prob < 0.0) return prob;
    n.met.push_back({unit, prob});
    std::push_heap(n.met.begin(), n.met.end(), less_probable);
    return prob;
}

double CandidateFinder::product(const ProposalNode &n, std::uint32_t unit, std::uint32_t from,
                                double contributes) {
    const ContextsBelow &below = statistics_.below();
    if (n.nr_of_columns > 2)
        for (const std::uint32_t d : columns(n))
            if (d != from && nodes_[d].owner &&
                below.below(nodes_[d].owner, unit, nodes_[d].path.dtr_nr, nodes_[d].path.nr_of_dtrs).size ==
                    0)
                return no_candidate;
    double prob = 1.0;
    for (const std::uint32_t d : columns(n)) {
        const double value = d == from ? contributes : best_below(d, unit);
        if (value < 0.0) return no_candidate;
        prob = value * prob;
    }
    return prob;
}

// ---------------------------------------------------------------- columns

// The next mother of the column, and the highest contribution under it if it comes for the first time. They
// come by their highest contributions. False: there are no more.
bool CandidateFinder::next_mother(std::uint32_t place, std::uint32_t &mother, double &contributes) {
    ProposalNode &n = nodes_[place];
    for (;;) {
        const double next = at_most(place, n.entered);
        if (next < 0.0 || (!n.cursors.empty() && next <= n.cursors.front().value)) break;
        if (!at(place, n.entered)) break;
        const Candidate c = n.known[n.entered++];
        const PathContexts on = statistics_.contexts_on(&statistics_.unit(c.unit), n.path);
        if (!on.first) continue;
        n.cursors.push_back({0.0, c.prob, on.first, on.total});
        n.cursors.back().value =
            contribution(c.prob, share(statistics_.contexts[on.first].checked_count, on.total));
        std::push_heap(n.cursors.begin(), n.cursors.end(), contributes_less);
    }
    if (n.cursors.empty()) return false;
    std::pop_heap(n.cursors.begin(), n.cursors.end(), contributes_less);
    ProposalNode::Cursor &cursor = n.cursors.back();
    mother = statistics_.contexts[cursor.context].mother;
    contributes = cursor.value;
    cursor.context = statistics_.next_on_path(cursor.context);
    if (cursor.context) {
        cursor.value = contribution(cursor.prob,
                                    share(statistics_.contexts[cursor.context].checked_count, cursor.total));
        std::push_heap(n.cursors.begin(), n.cursors.end(), contributes_less);
    } else {
        n.cursors.pop_back();
    }
    return true;
}

// No mother that the column has not named contributes more; negative: it has named all.
double CandidateFinder::column_at_most(std::uint32_t place) const {
    const ProposalNode &n = nodes_[place];
    const double of_candidates = at_most(place, n.entered);
    return n.cursors.empty() ? of_candidates : std::max(n.cursors.front().value, of_candidates);
}

// Shows candidates that fit under the mother, perhaps twice, until all are shown, or `show(fitting,
// in_order)` returns false, or `enough(prob)` says that none of at most that probability matters. They come
// in order as long as in_order is true.
template <class Enough, class Show>
void CandidateFinder::show_fitting(std::uint32_t place, std::uint32_t mother, Enough &&enough, Show &&show) {
    const ProposalNode &n = nodes_[place];
    const Path &path = n.path;
    const bool in_order = n.origin != Origin::combinations;
    const Contexts &contexts = statistics_.contexts;
    ContextsBelow::Below below;
    for (std::uint32_t i = 0;; ++i) {
        if (enough(at_most(place, i))) return;
        if (n.owner && i > 0) {
            if (i == 1) below = statistics_.below().below(n.owner, mother, path.dtr_nr, path.nr_of_dtrs);
            if (i >= below.size || (i >= n.known.size() && below.size <= few_below)) break;
        }
        if (!at(place, i)) return;
        const Candidate candidate = n.known[i];
        const std::uint32_t c = contexts.find(candidate.unit, mother, path.dtr_nr, path.nr_of_dtrs);
        if (c && contexts[c].checked_count > 0 && !show(Fitting{candidate, share_at(c)}, in_order)) return;
    }
    for (std::uint32_t c = below.first; c; c = statistics_.below().next(c)) {
        const double prob = prob_of(place, contexts[c].unit);
        if (prob >= 0.0 && !show(Fitting{{contexts[c].unit, prob}, share_at(c)}, false)) return;
    }
}

double CandidateFinder::best_below(std::uint32_t place, std::uint32_t mother) {
    double best = no_candidate;
    show_fitting(
        place, mother, [&](double at_most) { return at_most <= best; },
        [&](const Fitting &fitting, bool) {
            best = std::max(best, contribution(fitting.candidate.prob, fitting.share));
            return true;
        });
    return best;
}

// ---------------------------------------------------------------- the order of the enumeration

// Of the most probable combinations the first in the order: when another may be as probable as the one at
// hand, the order is gone through side by side with the probabilities until one of both has an end.
Candidate CandidateFinder::best(std::uint32_t place) {
    at(place, 0);
    const ProposalNode &n = nodes_[place];
    const Candidate best = n.known[0];
    if (n.origin != Origin::combinations) return best;
    std::size_t i = 1, next = 0;
    for (; at_most(place, i) >= best.prob; ++i) {
        const std::uint32_t unit = ordered(place, next++);
        if (prob_of(place, unit) == best.prob) return {unit, best.prob};
        if (!at(place, i) || n.known[i].prob < best.prob) break;
    }
    if (i == 1) return best;
    while (prob_of(place, ordered(place, next)) != best.prob) ++next;
    return {ordered(place, next), best.prob};
}

// Listed candidates are mostly shown in order. Combinations are looked for as in `best`.
Fitting CandidateFinder::first_fitting(std::uint32_t place, std::uint32_t mother, double before,
                                       double wanted) {
    const bool is_listed = nodes_[place].origin != Origin::combinations;
    const auto reaches = [=](double contributes) { return contributes * before >= wanted; };
    std::vector<Fitting> found;
    std::size_t next = 0;
    Fitting first;
    const auto look_at_next = [&] {
        first = fitting(place, ordered(place, next++), mother);
        return first.share > 0.0 && reaches(contribution(first.candidate.prob, first.share));
    };
    show_fitting(
        place, mother,
        [&](double at_most) {
            if (!reaches(contribution(std::max(at_most, 0.0), 1.0))) return true;
            if (is_listed || found.empty() || !look_at_next()) return false;
            found = {first};
            return true;
        },
        [&](const Fitting &shown, bool in_order) {
            if (reaches(contribution(shown.candidate.prob, shown.share))) found.push_back(shown);
            return !in_order || found.empty();
        });
    if (found.empty()) fault_in_hashtable();  // cannot be: the best candidates reach what is wanted
    if (found.size() == 1) return found.front();
    if (is_listed)
        return *std::min_element(found.begin(), found.end(), [this](const Fitting &a, const Fitting &b) {
            return Statistics::ranks_before(unit(a.candidate.unit), unit(b.candidate.unit));
        });
    while (!look_at_next()) continue;
    return first;
}

// A candidate of the node below a mother; its share is 0 if it does not fit there.
Fitting CandidateFinder::fitting(std::uint32_t place, std::uint32_t unit, std::uint32_t mother) {
    const Path &path = nodes_[place].path;
    const std::uint32_t c = statistics_.contexts.find(unit, mother, path.dtr_nr, path.nr_of_dtrs);
    return {{unit, prob_of(place, unit)}, c ? share_at(c) : 0.0};
}

// The i-th candidate, or 0.
std::uint32_t CandidateFinder::ordered(std::uint32_t place, std::size_t i) {
    ProposalNode &n = nodes_[place];
    if (n.origin != Origin::combinations) return at(place, i) ? n.known[i].unit : 0;
    while (n.ordered.size() <= i)
        if (!order_next(place)) return 0;
    return n.ordered[i];
}

// One more candidate has its place in the order; false: all have.
bool CandidateFinder::order_next(std::uint32_t place) {
    ProposalNode &n = nodes_[place];
    while (!n.all_ordered) {
        if (!n.order_context) {
            const std::uint32_t daughter = columns(n)[0];
            const std::uint32_t candidate = ordered(daughter, n.next_ordered++);
            if (candidate)
                n.order_context =
                    statistics_.contexts_on(&statistics_.unit(candidate), nodes_[daughter].path).first;
            else
                n.all_ordered = true;
            continue;
        }
        const std::uint32_t mother = statistics_.contexts[n.order_context].mother;
        n.order_context = statistics_.next_on_path(n.order_context);
        if (prob_of(place, mother) < 0.0) continue;
        if (!in_order_.insert({place, mother}).second) continue;
        n.ordered.push_back(mother);
        return true;
    }
    return false;
}

}  // namespace brindle
