#include "stats/paths.hpp"

namespace brindle {
namespace {

// Of an owner or unit and a path.
std::uint32_t path_hash(std::uint32_t number, const Path &path) {
    return mix_hash(reinterpret_cast<std::uintptr_t>(path.syn), number,
                    std::uint64_t{static_cast<std::uint32_t>(path.dtr_nr)} << 32 |
                        static_cast<std::uint32_t>(path.nr_of_dtrs));
}

}  // namespace

// ---------------------------------------------------------------- by unit and path

void PathLists::add(const Unit &unit) {
    for (std::uint32_t n = unit.contexts.first; n && contexts_[n].checked_count > 0;
         n = contexts_[n].by_unit.next) {
        append(n);
        lists_[hooks_[n].list].total += contexts_[n].checked_count;
    }
}

void PathLists::moved(std::uint32_t context, int by) {
    if (by > 0 && contexts_[context].checked_count == 1) {
        append(context);
        ++lists_[hooks_[context].list].total;
        return;
    }
    List &list = lists_[hooks_[context].list];
    list.total += by;
    if (by > 0)
        ranking().raised(list.contexts, context);
    else if (contexts_[context].checked_count > 0)
        ranking().lowered(list.contexts, context);
    else
        ranking().remove(list.contexts, context);
}

// The context comes last on its path.
void PathLists::append(std::uint32_t context) {
    hooks_.cover(context);
    hooks_[context].list = list_for(contexts_[context]);
    ranking().append(lists_[hooks_[context].list].contexts, context);
}

std::uint32_t PathLists::number_of(std::uint32_t unit, const Path &path, std::uint32_t hash) const {
    return index_.find(hash, [&](std::uint32_t number) {
        return lists_[number].unit == unit && lists_[number].path == path;
    });
}

std::uint32_t PathLists::list_for(const Context &c) {
    const Path path = path_of(c);
    const std::uint32_t hash = path_hash(c.unit, path);
    std::uint32_t number = number_of(c.unit, path, hash);
    if (!number) {
        number = lists_.add();
        lists_[number] = {c.unit, path, {}, 0};
        index_.insert(number, hash);
    }
    return number;
}

PathContexts PathLists::find(std::uint32_t unit, const Path &path) const {
    const std::uint32_t number = number_of(unit, path, path_hash(unit, path));
    return number ? PathContexts{lists_[number].contexts.first, lists_[number].total} : PathContexts();
}

const char *PathLists::fault(std::uint32_t unit, const Path &path) const {
    return ranking().fault(lists_[number_of(unit, path, path_hash(unit, path))].contexts);
}

// ---------------------------------------------------------------- by mother

std::uint32_t ContextsBelow::group_at(std::uint32_t hash, std::uint32_t owner, std::uint32_t mother,
                                      std::int32_t dtr_nr, std::int32_t nr_of_dtrs) const {
    return index_.find(hash, [&](std::uint32_t number) {
        const Group &group = groups_[number];
        return group.owner == owner && group.mother == mother && group.dtr_nr == dtr_nr &&
               group.nr_of_dtrs == nr_of_dtrs;
    });
}

void ContextsBelow::add(std::uint32_t owner, std::uint32_t context) {
    const Context &c = contexts_[context];
    const std::uint32_t hash = context_hash(owner, c.mother, c.dtr_nr, c.nr_of_dtrs);
    std::uint32_t number = group_at(hash, owner, c.mother, c.dtr_nr, c.nr_of_dtrs);
    if (!number) number = make_group(hash, owner, c);
    Group &group = groups_[number];
    hooks_.cover(context);
    hooks_[context] = {group.first, 0, number};
    if (group.first) hooks_[group.first].prev = context;
    group.first = context;
    ++group.size;
}

void ContextsBelow::remove(std::uint32_t context) {
    const Hook hook = hooks_[context];
    hooks_[context] = {};
    Group &group = groups_[hook.group];
    (hook.prev ? hooks_[hook.prev].next : group.first) = hook.next;
    if (hook.next) hooks_[hook.next].prev = hook.prev;
    if (--group.size == 0) release_group(hook.group);
}

std::uint32_t ContextsBelow::make_group(std::uint32_t hash, std::uint32_t owner, const Context &c) {
    std::uint32_t number = free_;
    if (number)
        free_ = groups_[number].next;
    else
        number = groups_.add();
    index_.insert(number, hash);
    const std::uint32_t path = path_for(owner, {units_[c.mother].syn, c.dtr_nr, c.nr_of_dtrs});
    groups_[number] = {owner, c.mother, c.dtr_nr, c.nr_of_dtrs, 0, 0, paths_[path].first, 0, path};
    if (paths_[path].first) groups_[paths_[path].first].prev = number;
    paths_[path].first = number;
    ++paths_[path].size;
    return number;
}

void ContextsBelow::release_group(std::uint32_t number) {
    Group &group = groups_[number];
    (group.prev ? groups_[group.prev].next : paths_[group.path].first) = group.next;
    if (group.next) groups_[group.next].prev = group.prev;
    --paths_[group.path].size;
    index_.erase(number, context_hash(group.owner, group.mother, group.dtr_nr, group.nr_of_dtrs));
    group = {};
    group.next = free_;
    free_ = number;
}

std::uint32_t ContextsBelow::path_at(std::uint32_t hash, std::uint32_t owner, const Path &path) const {
    return path_index_.find(hash, [&](std::uint32_t number) {
        return paths_[number].owner == owner && paths_[number].path == path;
    });
}

std::uint32_t ContextsBelow::path_for(std::uint32_t owner, const Path &path) {
    const std::uint32_t hash = path_hash(owner, path);
    std::uint32_t number = path_at(hash, owner, path);
    if (!number) {
        number = paths_.add();
        paths_[number] = {owner, path, 0, 0};
        path_index_.insert(number, hash);
    }
    return number;
}

ContextsBelow::Below ContextsBelow::below(std::uint32_t owner, std::uint32_t mother, std::int32_t dtr_nr,
                                          std::int32_t nr_of_dtrs) const {
    const std::uint32_t hash = context_hash(owner, mother, dtr_nr, nr_of_dtrs);
    const std::uint32_t number = group_at(hash, owner, mother, dtr_nr, nr_of_dtrs);
    return number ? Below{groups_[number].first, groups_[number].size} : Below();
}

ContextsBelow::Above ContextsBelow::above(std::uint32_t owner, const Path &path) const {
    const std::uint32_t number = path_at(path_hash(owner, path), owner, path);
    return number ? Above{paths_[number].first, paths_[number].size} : Above();
}

bool ContextsBelow::knows(std::uint32_t owner, std::uint32_t context) const {
    const Context &c = contexts_[context];
    if (context >= hooks_.size() || !hooks_[context].group) return false;
    const Hook &hook = hooks_[context];
    if (hook.next && hooks_[hook.next].prev != context) return false;
    const std::uint32_t hash = context_hash(owner, c.mother, c.dtr_nr, c.nr_of_dtrs);
    return hook.group == group_at(hash, owner, c.mother, c.dtr_nr, c.nr_of_dtrs);
}

// How many contexts its chain has.
std::uint32_t ContextsBelow::length_of(const Group &group) const {
    std::uint32_t length = 0;
    for (std::uint32_t n = group.first; n; n = next(n)) ++length;
    return length;
}

const char *ContextsBelow::fault(std::uint32_t owner, std::uint64_t nr_of_contexts) const {
    std::uint64_t length = 0;
    for (std::uint32_t path = 1; path < paths_.size(); ++path) {
        const OwnerPath &place = paths_[path];
        if (place.owner != owner) continue;
        std::uint32_t nr_of_groups = 0, before = 0;
        for (std::uint32_t g = place.first; g; before = g, g = groups_[g].next, ++nr_of_groups) {
            const Group &group = groups_[g];
            if (group.owner != owner || group.path != path || path_of(group) != place.path)
                return "a mother stands on another path than its own";
            if (group.prev != before) return "a path's links back are broken";
            if (group.size != length_of(group)) return "the number of contexts below a mother is wrong";
            length += group.size;
        }
        if (nr_of_groups != place.size) return "the number of mothers on a path is wrong";
    }
    return length == nr_of_contexts ? nullptr : "the index by mothers has contexts that do not count";
}

}  // namespace brindle
