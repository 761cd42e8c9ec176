#pragma once
// A list ranked by checked_count, highest first, in the order that a stable sort after every change would
// give.
//
// One change moves one element by one count. Going up, it passes the equals before it and becomes the last of
// the next higher group; going down, it passes the equals behind it and becomes the first of the next lower
// group. So an element only ever moves to the edge of its own group of equals, and knowing where each group
// begins and ends makes every change constant-time. Short lists are walked; a list that grows long gets an
// index of its elements by key and of its groups by count.
//
// T is a record with the fields prev, next, count, checked_count, a type Key, functions key(), set_key(Key)
// and static hash(Key).
#include <cstddef>
#include <cstdint>

#include <tsl/robin_map.h>

#include "model/pool.hpp"

namespace brindle {

template <class T>
class RankedList {
  public:
    using Key = typename T::Key;

    // The element seen most often in checked trees; its successors follow by `next`. Null: the list is empty.
    T *first() const { return first_; }

    // The element with this key, or null.
    T *find(const Key &key) const {
        if (!index_) return walk_to(key);
        const auto found = index_->by_key.find(key);
        return found == index_->by_key.end() ? nullptr : found->second;
    }

    // Counts one more of the key, creating its element from the pool; as checked too if `checked`. Returns
    // it.
    T *count_one_more(const Key &key, bool checked, Pool<T> &pool) {
        T *element = find(key);
        if (!element) element = append(key, pool);
        ++element->count;
        if (checked) raise(element);
        return element;
    }

    // Counts one less of the element, as checked too if `checked`; at 0 it leaves the list and goes back to
    // the pool. Returns true if it did.
    bool count_one_less(T *element, bool checked, Pool<T> &pool) {
        if (checked) lower(element);
        if (--element->count > 0) return false;
        remove(element);
        pool.release(element);
        return true;
    }

    // One more, one less, of the element's checked occurrences.
    void raise(T *element);
    void lower(T *element);

    // True once the list has grown so long that look-ups go through an index.
    bool is_indexed() const { return index_ != nullptr; }

    // What is wrong with the order, the links back or the index; null: nothing. For verify_tables.
    const char *fault() const;

    // Frees what the list holds beside its elements; the elements are the pool's.
    void drop_index() {
        delete index_;
        index_ = nullptr;
    }

  private:
    static constexpr int longest_without_index = 8;

    struct KeyHash {
        std::size_t operator()(const Key &key) const { return T::hash(key); }
    };
    struct Group {
        T *first;
        T *last;
    };
    struct Index {
        tsl::robin_map<Key, T *, KeyHash> by_key;
        tsl::robin_map<std::int32_t, Group> groups;
        T *last = nullptr;
    };

    T *walk_to(const Key &key) const {
        T *element = first_;
        while (element && !(element->key() == key)) element = element->next;
        return element;
    }

    T *append(const Key &key, Pool<T> &pool);
    void remove(T *element);
    void build_index();
    void unlink(T *element);
    void link_between(T *before, T *element, T *after);
    void leave_group(T *element);

    T *first_ = nullptr;
    Index *index_ = nullptr;
};

template <class T>
T *RankedList<T>::append(const Key &key, Pool<T> &pool) {
    T *element = pool.make();
    element->set_key(key);
    T *last = index_ ? index_->last : first_;
    int length = 1;
    if (!index_)
        while (last && last->next) last = last->next, ++length;
    element->prev = last;
    (last ? last->next : first_) = element;
    if (index_) {
        index_->last = element;
        index_->by_key[key] = element;
        auto [group, is_new] = index_->groups.try_emplace(0, Group{element, element});
        if (!is_new) group.value().last = element;
    } else if (length >= longest_without_index) {
        build_index();
    }
    return element;
}

template <class T>
void RankedList<T>::build_index() {
    index_ = new Index;
    for (T *e = first_; e; e = e->next) {
        index_->by_key[e->key()] = e;
        auto [group, is_new] = index_->groups.try_emplace(e->checked_count, Group{e, e});
        if (!is_new) group.value().last = e;
        index_->last = e;
    }
}

template <class T>
void RankedList<T>::unlink(T *element) {
    (element->prev ? element->prev->next : first_) = element->next;
    if (element->next)
        element->next->prev = element->prev;
    else if (index_)
        index_->last = element->prev;
}

// Either neighbour may be null at an end of the list.
template <class T>
void RankedList<T>::link_between(T *before, T *element, T *after) {
    element->prev = before;
    element->next = after;
    (before ? before->next : first_) = element;
    if (after)
        after->prev = element;
    else if (index_)
        index_->last = element;
}

// Takes the element out of its group of equals; its neighbours are still linked to it.
template <class T>
void RankedList<T>::leave_group(T *element) {
    const auto found = index_->groups.find(element->checked_count);
    Group &group = found.value();
    if (group.first == group.last)
        index_->groups.erase(found);
    else if (group.first == element)
        group.first = element->next;
    else if (group.last == element)
        group.last = element->prev;
}

template <class T>
void RankedList<T>::raise(T *element) {
    T *place = element;  // the first of its equals
    if (index_) {
        place = index_->groups.find(element->checked_count)->second.first;
        leave_group(element);
    } else {
        while (place->prev && place->prev->checked_count == element->checked_count) place = place->prev;
    }
    if (place != element) {
        unlink(element);
        link_between(place->prev, element, place);
    }
    ++element->checked_count;
    if (index_) {
        auto [group, is_new] = index_->groups.try_emplace(element->checked_count, Group{element, element});
        if (!is_new) group.value().last = element;
    }
}

template <class T>
void RankedList<T>::lower(T *element) {
    T *place = element;  // the last of its equals
    if (index_) {
        place = index_->groups.find(element->checked_count)->second.last;
        leave_group(element);
    } else {
        while (place->next && place->next->checked_count == element->checked_count) place = place->next;
    }
    if (place != element) {
        unlink(element);
        link_between(place, element, place->next);
    }
    --element->checked_count;
    if (index_) {
        auto [group, is_new] = index_->groups.try_emplace(element->checked_count, Group{element, element});
        if (!is_new) group.value().first = element;
    }
}

template <class T>
void RankedList<T>::remove(T *element) {
    if (index_) {
        index_->by_key.erase(element->key());
        leave_group(element);
    }
    unlink(element);
    if (!first_) drop_index();
}

template <class T>
const char *RankedList<T>::fault() const {
    const T *before = nullptr;
    std::size_t length = 0, groups = 0;
    for (const T *e = first_; e; before = e, e = e->next, ++length) {
        if (e->prev != before) return "links back are broken";
        if (before && before->checked_count < e->checked_count) return "not ranked by checked_count";
        if (e->count < 1 || e->checked_count < 0) return "impossible count";
        const bool leads = !before || before->checked_count != e->checked_count;
        groups += leads;
        if (!index_) continue;
        if (find(e->key()) != e) return "the index misses an element";
        const auto group = index_->groups.find(e->checked_count);
        if (group == index_->groups.end()) return "the index misses a group of equals";
        if (leads && group->second.first != e) return "a group of equals begins elsewhere";
        const bool ends = !e->next || e->next->checked_count != e->checked_count;
        if (ends && group->second.last != e) return "a group of equals ends elsewhere";
    }
    if (!index_) return nullptr;
    if (index_->last != before) return "the index has another end of the list";
    if (index_->by_key.size() != length) return "the index has elements that are not in the list";
    if (index_->groups.size() != groups) return "the index has groups that are not in the list";
    return nullptr;
}

}  // namespace brindle
