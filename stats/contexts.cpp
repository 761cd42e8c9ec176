// Mother contexts, and the indexes of them that the proposal asks.
#include "stats/contexts.hpp"

#include <vector>

#include <tsl/robin_map.h>

#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle {

// ---------------------------------------------------------------- one context

void Statistics::record(Unit *unit, const Node *node, bool checked) {
    const Node *const mother = node->mother();
    const std::uint32_t own = number_of(unit), above = number_of(mother->unit());
    const std::uint32_t hash = context_hash(own, above, node->position(), mother->nr_of_dtrs());
    std::uint32_t number = contexts.find(hash, own, above, node->position(), mother->nr_of_dtrs());
    if (!number) {
        number = contexts.add(hash, own, above, node->position(), mother->nr_of_dtrs());
        context_lists().append(unit->contexts, number);
    }
    ++contexts[number].count;
    if (checked) move_context(unit, number, 1);
}

void Statistics::withdraw(Unit *unit, const Node *node, bool checked) {
    const Node *const mother = node->mother();
    const std::uint32_t number =
        contexts.find(number_of(unit), number_of(mother->unit()), node->position(), mother->nr_of_dtrs());
    if (!number) fault_in_hashtable();
    if (checked) move_context(unit, number, -1);
    if (--contexts[number].count > 0) return;
    context_lists().remove(unit->contexts, number);
    contexts.release(number);
}

void Statistics::move_context(Unit *unit, std::uint32_t number, int by) {
    Context &c = contexts[number];
    c.checked_count += by;
    if (by > 0)
        context_lists().raised(unit->contexts, number);
    else
        context_lists().lowered(unit->contexts, number);
    if (unit->has_path_lists) path_lists_.moved(number, by);
    if (!unit->owner) return;
    if (by > 0 && c.checked_count == 1) below_.add(unit->owner, number);
    if (by < 0 && c.checked_count == 0) below_.remove(number);
}

// ---------------------------------------------------------------- a node's contexts

void Statistics::record_context(const Node *node, bool checked) {
    if (!node->mother()) return;
    if (node->lex()) record(node->unit(), node, checked);
    record(node->unit()->pair, node, checked);
}

void Statistics::withdraw_context(const Node *node, bool checked) {
    if (!node->mother()) return;
    if (node->lex()) withdraw(node->unit(), node, checked);
    withdraw(node->unit()->pair, node, checked);
}

namespace {

// A context that is about to be looked for.
struct Wanted {
    Unit *unit;
    const Node *node;  // that stands there
    std::uint32_t hash;
};

}  // namespace

// The looks at contexts would wait for memory one after another. So all of the tree's are asked for, slots
// and then records, while the units are gone through.
void Statistics::move_checked_counts(Node *root, bool checked) {
    const int by = checked ? 1 : -1;
    std::vector<Wanted> wanted;
    do_with(root, [&](Node *node) {
        Unit *const own[] = {node->unit(), node->unit()->pair};
        if (!node->mother()) return;
        for (Unit *unit : std::span(own).subspan(own[0] == own[1])) {
            const std::uint32_t hash = context_hash(number_of(unit), number_of(node->mother()->unit()),
                                                    node->position(), node->mother()->nr_of_dtrs());
            contexts.fetch_slot(hash);
            wanted.push_back({unit, node, hash});
        }
    });
    do_with(root, [&](Node *node) {
        Unit *const unit = node->unit();
        if (unit->lex) {
            word_entry(unit)->checked_count += by;
            move_word(unit, by);
        }
        tag_entry(unit)->checked_count += by;
        category_entry(unit)->checked_count += by;
        move_pair(unit->pair, by);
    });
    for (const Wanted &w : wanted) contexts.fetch_record(w.hash);
    for (const Wanted &w : wanted) {
        const Node *const mother = w.node->mother();
        const std::uint32_t number = contexts.find(w.hash, number_of(w.unit), number_of(mother->unit()),
                                                   w.node->position(), mother->nr_of_dtrs());
        if (!number) fault_in_hashtable();
        move_context(w.unit, number, by);
    }
}

// ---------------------------------------------------------------- indexes of paths

void Statistics::make_path_lists(Unit *unit) {
    path_lists_.add(*unit);
    unit->has_path_lists = true;
}

PathContexts Statistics::contexts_on(Unit *unit, const Path &path) {
    if (!unit->has_path_lists && unit->contexts.length > longest_without_paths) make_path_lists(unit);
    if (unit->has_path_lists) return path_lists_.find(number_of(unit), path);
    PathContexts found;
    for (std::uint32_t n = unit->contexts.first; n && contexts[n].checked_count > 0;
         n = contexts[n].by_unit.next) {
        if (!is_on(contexts[n], path)) continue;
        if (!found.first) found.first = n;
        found.total += contexts[n].checked_count;
    }
    return found;
}

std::uint32_t Statistics::next_on_path(std::uint32_t context) const {
    const Context &c = contexts[context];
    if (unit(c.unit).has_path_lists) return path_lists_.next(context);
    std::uint32_t n = c.by_unit.next;
    const Path path = path_of(c);
    while (n && contexts[n].checked_count > 0 && !is_on(contexts[n], path)) n = contexts[n].by_unit.next;
    return n && contexts[n].checked_count > 0 ? n : 0;
}

std::int32_t Statistics::total_on_path(std::uint32_t context) {
    Unit &u = unit(contexts[context].unit);
    if (u.has_path_lists) return path_lists_.total_beside(context);
    return contexts_on(&u, path_of(contexts[context])).total;
}

std::uint32_t Statistics::owner_of(LabelEntry *category) {
    if (!category->owner) add_below(category->pairs, category->owner = below_.make_owner());
    return category->owner;
}

std::uint32_t Statistics::owner_of(LexEntry *word) {
    if (!word->owner) add_below(word->units, word->owner = below_.make_owner());
    return word->owner;
}

void Statistics::add_below(const RankedList &units, std::uint32_t owner) {
    for (Unit *u = first_of(units); u; u = next_of_owner(u)) {
        u->owner = owner;
        for (std::uint32_t n = u->contexts.first; n && contexts[n].checked_count > 0;
             n = contexts[n].by_unit.next)
            below_.add(owner, n);
    }
}

const char *Statistics::fault_in_paths(const Unit *unit) const {
    if (!unit->has_path_lists) return nullptr;
    struct Known {
        std::uint32_t last = 0;
        std::int32_t total = 0;
    };
    tsl::robin_map<Path, Known, PathHash> paths;
    for (std::uint32_t n = unit->contexts.first; n && contexts[n].checked_count > 0;
         n = contexts[n].by_unit.next) {
        Known &known = paths[path_of(contexts[n])];
        if (path_lists_.previous(n) != known.last) return "a path has other contexts, or in another order";
        known = {n, known.total + contexts[n].checked_count};
    }
    for (const auto &[path, known] : paths) {
        if (path_lists_.next(known.last)) return "a path has contexts that do not count";
        if (path_lists_.find(number_of(unit), path).total != known.total)
            return "the total of a path is wrong";
        if (const char *fault = path_lists_.fault(number_of(unit), path)) return fault;
    }
    return nullptr;
}

const char *Statistics::fault_below(const RankedList &units, std::uint32_t owner) const {
    if (!owner) return nullptr;
    std::uint64_t size = 0;
    for (std::uint32_t u = units.first; u; u = unit(u).by_owner.next) {
        if (unit(u).owner != owner) return "a unit has another owner";
        for (std::uint32_t n = unit(u).contexts.first; n && contexts[n].checked_count > 0;
             n = contexts[n].by_unit.next) {
            if (!below_.knows(owner, n)) return "the index by mothers misses a context";
            ++size;
        }
    }
    return below_.fault(owner, size);
}

}  // namespace brindle
