#pragma once
// Lists ranked by checked count, highest first, in the order that a stable sort after every change would
// give.
//
// One change moves one element by one count. Going up, it passes the equals before it and becomes the last of
// the next higher group of equals; going down, it passes the equals behind it and becomes the first of the
// next lower one. So it only ever moves to the edge of a group, and as each element knows its group, and each
// group its ends, every change takes constant time.
#include <cstdint>
#include <span>

#include "model/unit.hpp"

namespace brindle {

// Neighbouring elements of a list with the same checked count.
struct RankGroup {
    std::uint32_t first;
    std::uint32_t last;
};

// The groups of all lists of a corpus.
class RankGroups {
  public:
    RankGroup &operator[](std::uint32_t number) { return groups_[number]; }
    const RankGroup &operator[](std::uint32_t number) const { return groups_[number]; }

    // A group of one.
    std::uint32_t make(std::uint32_t element) {
        std::uint32_t number = free_;
        if (number)
            free_ = groups_[number].first;
        else
            number = groups_.add();
        groups_[number] = {element, element};
        return number;
    }
    void release(std::uint32_t number) {
        groups_[number].first = free_;
        free_ = number;
    }
    std::size_t bytes() const { return groups_.bytes(); }

  private:
    GrowingArray<RankGroup> groups_;
    std::uint32_t free_ = 0;  // linked by first
};

// Works on lists of one kind. `Elements` knows their elements by number: RankHook &hook(number) and
// int checked_count(number).
template <class Elements>
class Ranking {
  public:
    Ranking(Elements elements, RankGroups &groups) : elements_(elements), groups_(groups) {}

    // Makes the list of elements that are in rank order. REQUIRES: it is empty.
    void fill(RankedList &list, std::span<const std::uint32_t> elements) {
        for (const std::uint32_t e : elements) append(list, e);
    }

    // The element comes last. REQUIRES: no element has a lower checked count.
    void append(RankedList &list, std::uint32_t e) {
        RankHook &h = hook(e);
        h.prev = list.last;
        h.next = 0;
        (list.last ? hook(list.last).next : list.first) = e;
        if (list.last && is_level(list.last, e)) {
            h.group = hook(list.last).group;
            groups_[h.group].last = e;
        } else {
            h.group = groups_.make(e);
        }
        list.last = e;
        ++list.length;
    }

    // The element leaves the list.
    void remove(RankedList &list, std::uint32_t e) {
        leave_group(e);
        unlink(list, e);
        --list.length;
    }

    // The element's checked count has risen by one.
    void raised(RankedList &list, std::uint32_t e) {
        const std::uint32_t edge = groups_[hook(e).group].first, above = hook(edge).prev;
        const bool joins = above && is_level(above, e);
        if (!joins && groups_[hook(e).group].last == edge) return;  // alone, it takes its group along
        leave_group(e);
        if (edge != e) {
            unlink(list, e);
            link(list, above, e, edge);
        }
        hook(e).group = joins ? hook(above).group : groups_.make(e);
        groups_[hook(e).group].last = e;
    }

    // The element's checked count has fallen by one.
    void lowered(RankedList &list, std::uint32_t e) {
        const std::uint32_t edge = groups_[hook(e).group].last, below = hook(edge).next;
        const bool joins = below && is_level(below, e);
        if (!joins && groups_[hook(e).group].first == edge) return;
        leave_group(e);
        if (edge != e) {
            unlink(list, e);
            link(list, edge, e, below);
        }
        hook(e).group = joins ? hook(below).group : groups_.make(e);
        groups_[hook(e).group].first = e;
    }

    // What is wrong with order, links or groups of the list; null: nothing.
    const char *fault(const RankedList &list) const {
        std::uint32_t before = 0;
        std::int32_t length = 0;
        for (std::uint32_t e = list.first; e; before = e, e = hook(e).next, ++length) {
            const RankGroup &group = groups_[hook(e).group];
            if (hook(e).prev != before) return "links back are broken";
            if (before && elements_.checked_count(before) < elements_.checked_count(e))
                return "not ranked by checked_count";
            const bool begins = !before || !is_level(before, e);
            const bool ends = !hook(e).next || !is_level(e, hook(e).next);
            if (!begins && hook(before).group != hook(e).group) return "equals of two groups";
            if (begins != (group.first == e)) return "a group of equals begins elsewhere";
            if (ends != (group.last == e)) return "a group of equals ends elsewhere";
        }
        if (before != list.last) return "its last element is another";
        return length == list.length ? nullptr : "its length is wrong";
    }

  private:
    RankHook &hook(std::uint32_t e) const { return elements_.hook(e); }
    bool is_level(std::uint32_t a, std::uint32_t b) const {
        return elements_.checked_count(a) == elements_.checked_count(b);
    }

    void unlink(RankedList &list, std::uint32_t e) {
        const RankHook h = hook(e);
        (h.prev ? hook(h.prev).next : list.first) = h.next;
        (h.next ? hook(h.next).prev : list.last) = h.prev;
    }
    // Either neighbour may be none at an end of the list.
    void link(RankedList &list, std::uint32_t before, std::uint32_t e, std::uint32_t after) {
        hook(e).prev = before;
        hook(e).next = after;
        (before ? hook(before).next : list.first) = e;
        (after ? hook(after).prev : list.last) = e;
    }

    // Takes the element, which is still linked to its neighbours, out of its group; an empty group goes.
    void leave_group(std::uint32_t e) {
        const RankHook &h = hook(e);
        RankGroup &group = groups_[h.group];
        if (group.first == group.last) return groups_.release(h.group);
        if (group.first == e) group.first = h.next;
        if (group.last == e) group.last = h.prev;
    }

    Elements elements_;
    RankGroups &groups_;
};

}  // namespace brindle
