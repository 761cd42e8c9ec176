#pragma once
// A list ranked by checked_count, highest first, in the order that a stable sort after every change would
// give.
//
// One change moves one element by one count. Going up, it passes the equals before it and becomes the last of
// the next higher group; going down, it passes the equals behind it and becomes the first of the next lower
// group. So it only ever moves to the edge of a group of equals, and every change is constant-time:
//
// - While nobody has asked for the order, a change only stamps the element: among equals, the one with the
// lower
//   stamp comes first. Reading a corpus, and most of the changes after that, touch no element but the one.
// - The first question, first(), sorts the list once by count and stamp. From then on each element knows its
//   group of equals, whose ends are the edges, and every change moves its element there.
//
// Elements are found by key through one index for all lists of a type. An element that is alone in its list
// is found without it, as is the first one.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/pool.hpp"
#include "model/record_index.hpp"

namespace brindle {

template <class T>
class RankedList;

// Neighbouring elements of a list with the same checked_count.
template <class T>
struct RankGroup {
    std::int32_t checked_count = 0;
    T *first = nullptr;
    T *last = nullptr;
    RankGroup *higher = nullptr;  // the group before it in the list
    RankGroup *lower = nullptr;   // the group behind it
};

// The stamps are in the order in which they were given, in all lists of all types.
struct RankStamps {
    inline static std::int64_t latest = 0;    // the highest given
    inline static std::int64_t foremost = 0;  // the lowest
};

// What each element of a list has. T is derived from it and has besides the fields next and prev, a type Key
// and functions key(), set_key(Key) and static hash(Key), 64 bits. What counting looks at stands before next
// and prev.
template <class T>
struct Ranked {
    std::int32_t count = 0;
    std::int32_t checked_count = 0;

    // Counts here too whatever the element of another list has been counted. REQUIRES: nobody has asked
    // either list for its order.
    template <class U>
    void add_counts(const Ranked<U> &other) {
        count += other.count;
        if (other.checked_count == 0) return;
        stamp_ = checked_count == 0 ? other.stamp_ : std::max(stamp_, other.stamp_);
        checked_count += other.checked_count;
    }

  private:
    friend class RankedList<T>;
    template <class U>
    friend struct Ranked;
    RankedList<T> *list_ = nullptr;
    union {
        std::int64_t stamp_ = 0;  // in a list that has not been asked for its order
        RankGroup<T> *group_;     // in one that has
    };
};

template <class T>
class RankedList {
  public:
    using Key = typename T::Key;

    // The element seen most often in checked trees; its successors follow by `next`. Null: the list is empty.
    T *first() const {
        if (!is_ordered_ && length_ > 1) const_cast<RankedList *>(this)->order();
        return first_;
    }

    // Applies the function to every element, in no particular order. It may release the element.
    template <class Function>
    void for_each(Function &&function) const {
        for (T *next, *element = first_; element; element = next) {
            next = element->next;
            function(element);
        }
    }

    std::int32_t length() const { return length_; }
    // Whether the list has been asked for its order.
    bool is_ordered() const { return is_ordered_; }

    // The element with this key, or null. A list of one needs no index.
    T *find(const Key &key) const { return find(key, hash(key)); }
    T *find(const Key &key, std::uint32_t hash) const {
        if (length_ <= 1) return length_ == 1 && first_->key() == key ? first_ : nullptr;
        return index_.find(hash, [&](const T *e) { return e->list_ == this && e->key() == key; });
    }

    // The hash under which this list's elements are found.
    std::uint32_t hash(const Key &key) const {
        std::uint64_t h = T::hash(key) + reinterpret_cast<std::uintptr_t>(this) * 0xd6e8feb86659fd93u;
        h = (h ^ (h >> 32)) * 0x9e3779b97f4a7c15u;
        return static_cast<std::uint32_t>(h >> 32);
    }

    // Ask memory for what a find with this hash will look at; the second some time after the first.
    void prefetch(std::uint32_t hash) const {
        if (length_ == 1)
            fetch_ahead(first_);
        else
            index_.prefetch_slot(hash);
    }
    void prefetch_element(std::uint32_t hash) const {
        if (length_ > 1) index_.prefetch_record(hash);
    }
    // The same for a list that is itself still on its way: `prefetch_slot` does not look at it.
    static void prefetch_slot(std::uint32_t hash) { index_.prefetch_slot(hash); }
    // The element that a find with this hash will most likely return, or null; no element is looked at.
    T *guess(std::uint32_t hash) const { return length_ == 1 ? first_ : index_.guess(hash); }

    // What is looked at besides when this element leaves the list, or an element enters it (null).
    void prefetch_neighbours(const T *element) const {
        if (!element) {
            fetch_ahead(is_ordered_ ? static_cast<const void *>(lowest_) : first_);
        } else if (element->count == 1) {
            fetch_ahead(element->prev);
            fetch_ahead(element->next);
        }
    }
    void prefetch_neighbours(const Key &key, std::uint32_t hash) const {
        prefetch_neighbours(find(key, hash));
    }

    // Counts one more of the key, creating its element from the pool; as checked too if `checked`. Returns
    // it.
    T *count_one_more(const Key &key, bool checked, Pool<T> &pool) {
        T *element = find(key);
        if (!element) element = add(key, pool);
        count_one_more(element, checked);
        return element;
    }
    void count_one_more(T *element, bool checked) {
        ++element->count;
        if (checked) raise(element);
    }

    // A new element, not counted yet. REQUIRES: the key has none.
    T *add(const Key &key, Pool<T> &pool);

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

    // Gives all elements back to the pool.
    void clear(Pool<T> &pool);

    // Forgets all elements of all lists at once; their pool is cleared with it, and no list is used again.
    static void forget_all() {
        index_.clear();
        groups_.clear();
    }

    // Makes room in the index of all lists for a quarter more elements, so that no change of a person at work
    // has to wait while it grows.
    static void make_room_for_changes() { index_.make_room(index_.size() / 4); }

    // What is wrong with order, links, groups or index; null: nothing. Leaves the list as it is.
    const char *fault() const;

    // Bytes held by the index and the groups of all lists.
    static std::size_t bytes() { return index_.bytes() + groups_.bytes(); }

  private:
    using Group = RankGroup<T>;

    static bool ranks_before(const T *a, const T *b) {
        if (a->checked_count != b->checked_count) return a->checked_count > b->checked_count;
        return a->stamp_ < b->stamp_;
    }

    void remove(T *element);
    void order();
    void link_between(T *before, T *element, T *after);
    void unlink(T *element);
    void join_end(T *element);
    Group *new_group(Group *higher, std::int32_t checked_count, Group *lower);
    void leave_group(T *element);
    const char *fault_in_order() const;

    inline static RecordIndex<T> index_;
    inline static Pool<Group> groups_;

    T *first_ = nullptr;
    std::int32_t length_ = 0;
    bool is_ordered_ = false;  // somebody has asked for the order since the list was last empty
    Group *lowest_ = nullptr;  // the last group, when the list is ordered
};

// A new element comes last in an ordered list; in another it may stand anywhere.
template <class T>
T *RankedList<T>::add(const Key &key, Pool<T> &pool) {
    T *element = pool.make();
    element->set_key(key);
    element->list_ = this;
    if (length_ == 1) index_.insert(first_, hash(first_->key()));
    if (length_ >= 1) index_.insert(element, hash(key));
    ++length_;
    if (is_ordered_) {
        join_end(element);
    } else {
        element->stamp_ = ++RankStamps::latest;
        link_between(nullptr, element, first_);
    }
    return element;
}

template <class T>
void RankedList<T>::remove(T *element) {
    if (length_ >= 2) index_.erase(element, hash(element->key()));
    if (is_ordered_) leave_group(element);
    unlink(element);
    if (--length_ == 1) index_.erase(first_, hash(first_->key()));
    if (length_ == 0) is_ordered_ = false;
}

template <class T>
void RankedList<T>::order() {
    std::vector<T *> elements;
    elements.reserve(static_cast<std::size_t>(length_));
    for_each([&](T *element) { elements.push_back(element); });
    std::sort(elements.begin(), elements.end(), ranks_before);
    first_ = nullptr;
    is_ordered_ = true;
    for (T *element : elements) join_end(element);
}

template <class T>
void RankedList<T>::raise(T *element) {
    ++element->checked_count;
    if (!is_ordered_) {
        element->stamp_ = ++RankStamps::latest;
        return;
    }
    Group *const group = element->group_;
    Group *target = group->higher;
    if (!target || target->checked_count != element->checked_count) {
        if (group->first == group->last) {  // alone, it takes its group along
            ++group->checked_count;
            return;
        }
        target = new_group(target, element->checked_count, group);
    }
    T *const edge = group->first;
    leave_group(element);
    if (edge != element) {
        unlink(element);
        link_between(edge->prev, element, edge);
    }
    element->group_ = target;
    target->last = element;
    if (!target->first) target->first = element;
}

template <class T>
void RankedList<T>::lower(T *element) {
    --element->checked_count;
    if (!is_ordered_) {
        element->stamp_ = --RankStamps::foremost;
        return;
    }
    Group *const group = element->group_;
    Group *target = group->lower;
    if (!target || target->checked_count != element->checked_count) {
        if (group->first == group->last) {
            --group->checked_count;
            return;
        }
        target = new_group(group, element->checked_count, target);
        if (!target->lower) lowest_ = target;
    }
    T *const edge = group->last;
    leave_group(element);
    if (edge != element) {
        unlink(element);
        link_between(edge, element, edge->next);
    }
    element->group_ = target;
    target->first = element;
    if (!target->last) target->last = element;
}

template <class T>
void RankedList<T>::clear(Pool<T> &pool) {
    while (first_) {
        T *const element = first_;
        remove(element);
        pool.release(element);
    }
}

template <class T>
void RankedList<T>::unlink(T *element) {
    (element->prev ? element->prev->next : first_) = element->next;
    if (element->next) element->next->prev = element->prev;
}

// Either neighbour may be null at an end of the list.
template <class T>
void RankedList<T>::link_between(T *before, T *element, T *after) {
    element->prev = before;
    element->next = after;
    (before ? before->next : first_) = element;
    if (after) after->prev = element;
}

// Puts the element at the end of a list that is in order, or is being put in order.
template <class T>
void RankedList<T>::join_end(T *element) {
    T *const end = lowest_ ? lowest_->last : nullptr;
    if (!lowest_ || lowest_->checked_count != element->checked_count)
        lowest_ = new_group(lowest_, element->checked_count, nullptr);
    link_between(end, element, nullptr);
    element->group_ = lowest_;
    if (!lowest_->first) lowest_->first = element;
    lowest_->last = element;
}

// An empty group between its neighbours, either of which may be null.
template <class T>
RankGroup<T> *RankedList<T>::new_group(Group *higher, std::int32_t checked_count, Group *lower) {
    Group *group = groups_.make();
    group->checked_count = checked_count;
    group->higher = higher;
    group->lower = lower;
    if (higher) higher->lower = group;
    if (lower) lower->higher = group;
    return group;
}

// Takes the element, which is still linked to its neighbours, out of its group; an empty group goes.
template <class T>
void RankedList<T>::leave_group(T *element) {
    Group *const group = element->group_;
    if (group->first != group->last) {
        if (group->first == element) group->first = element->next;
        if (group->last == element) group->last = element->prev;
        return;
    }
    if (group->higher) group->higher->lower = group->lower;
    (group->lower ? group->lower->higher : lowest_) = group->higher;
    groups_.release(group);
}

template <class T>
const char *RankedList<T>::fault() const {
    const T *before = nullptr;
    std::int32_t length = 0;
    for (const T *e = first_; e; before = e, e = e->next, ++length) {
        if (e->prev != before) return "links back are broken";
        if (e->count < 1 || e->checked_count < 0) return "impossible count";
        if (e->list_ != this) return "an element belongs to another list";
        if (find(e->key()) != e) return "the index misses an element";
    }
    if (length != length_) return "its length is wrong";
    if (is_ordered_ != (lowest_ != nullptr)) return "its groups are not those of its state";
    return is_ordered_ ? fault_in_order() : nullptr;
}

template <class T>
const char *RankedList<T>::fault_in_order() const {
    const Group *group = nullptr;
    for (const T *e = first_; e; e = e->next) {
        if (e->group_ != group) {
            if (group && group->lower != e->group_) return "groups of equals are out of order";
            if (e->group_->higher != group) return "a group of equals is linked back wrongly";
            group = e->group_;
            if (group->first != e) return "a group of equals begins elsewhere";
        }
        if (group->checked_count != e->checked_count) return "not ranked by checked_count";
        if (e->next && e->next->checked_count > e->checked_count) return "not ranked by checked_count";
        if (e->next ? e->next->group_ != group && group->last != e : group->last != e || group != lowest_)
            return "a group of equals ends elsewhere";
    }
    return nullptr;
}

}  // namespace brindle
