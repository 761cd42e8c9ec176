#include "stats/parents.hpp"

#include <algorithm>

namespace brindle {
namespace {

using Tag = PathTags::Tag;

std::vector<Tag>::iterator place_of(PathTags &path, const Label *sem) {
    return std::find_if(path.tags.begin(), path.tags.end(), [sem](const Tag &tag) { return tag.sem == sem; });
}

// The tags stay in the order of their records: what rises becomes the last of the next higher group of
// equals, what falls the first of the next lower one.
void raise_in(PathTags &path, Label *sem) {
    ++path.total;
    auto tag = place_of(path, sem);
    if (tag == path.tags.end()) {
        path.tags.push_back({sem, 1});
        return;
    }
    const auto first_equal = std::partition_point(
        path.tags.begin(), tag, [tag](const Tag &t) { return t.checked_count > tag->checked_count; });
    std::rotate(first_equal, tag, tag + 1);
    ++first_equal->checked_count;
}

void lower_in(PathTags &path, Label *sem) {
    --path.total;
    const auto tag = place_of(path, sem);
    const auto past_equals = std::partition_point(
        tag, path.tags.end(), [tag](const Tag &t) { return t.checked_count >= tag->checked_count; });
    std::rotate(tag, tag + 1, past_equals);
    if (--(past_equals - 1)->checked_count == 0) path.tags.pop_back();
}

}  // namespace

void Parents::count_one_more(ParentRecord *record, bool checked) {
    list_.count_one_more(record, checked);
    if (checked && list_.is_ordered() && paths_) raise_in((*paths_)[record->key().path()], record->sem);
}

void Parents::count_one_less(ParentRecord *record, bool checked, Pool<ParentRecord> &pool) {
    if (checked && paths_) lower_in((*paths_)[record->key().path()], record->sem);
    list_.count_one_less(record, checked, pool);
    if (list_.length() == 0) drop_paths();
}

void Parents::raise(ParentRecord *record) {
    list_.raise(record);
    if (paths_) raise_in((*paths_)[record->key().path()], record->sem);
}

void Parents::lower(ParentRecord *record) {
    list_.lower(record);
    if (paths_) lower_in((*paths_)[record->key().path()], record->sem);
}

void Parents::clear(Pool<ParentRecord> &pool) {
    drop_paths();
    list_.clear(pool);
}

void Parents::drop_paths() {
    if (paths_) all_paths_.erase(this);
    paths_ = nullptr;
}

Parents::Paths Parents::made_paths() const {
    Paths paths;
    for (const ParentRecord *r = first(); r && r->checked_count > 0; r = r->next) {
        PathTags &path = paths[r->key().path()];
        path.tags.push_back({r->sem, r->checked_count});
        path.total += r->checked_count;
    }
    return paths;
}

const char *Parents::fault() const {
    if (const char *fault = list_.fault()) return fault;
    if (!paths_) return nullptr;
    const Paths fresh = made_paths();
    std::size_t met = 0;
    for (const auto &[path, tags] : *paths_) {
        const auto found = fresh.find(path);
        met += found != fresh.end();
        if (!(tags == (found == fresh.end() ? PathTags() : found->second)))
            return "the index of paths differs from the list";
    }
    return met == fresh.size() ? nullptr : "the index of paths misses a path";
}

const PathTags &Parents::tags_of(const Path &path, PathTags &room) {
    room.tags.clear();
    room.total = 0;
    if (paths_ || list_.length() > longest_without_paths) {
        if (!paths_) paths_ = &all_paths_.emplace(this, made_paths()).first->second;
        const auto found = paths_->find(path);
        return found == paths_->end() ? room : found->second;
    }
    for (const ParentRecord *r = first(); r && r->checked_count > 0; r = r->next) {
        if (!(r->key().path() == path)) continue;
        room.tags.push_back({r->sem, r->checked_count});
        room.total += r->checked_count;
    }
    return room;
}

}  // namespace brindle
