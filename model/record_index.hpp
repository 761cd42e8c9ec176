#pragma once
// Finds the elements of lists by their keys: one open-addressing table for all lists of one type.
//
// In a large corpus nearly every look-up here waits for memory, so a slot is small, holds enough of the hash
// to pass over strangers without looking at them, and can be fetched ahead of its use.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "model/fetch_ahead.hpp"
#include "model/large_memory.hpp"

namespace brindle {

template <class T>
class RecordIndex {
  public:
    // The record with this hash for which `is_it` is true, or null.
    template <class IsIt>
    T *find(std::uint32_t hash, IsIt &&is_it) const {
        if (size_ == 0) return nullptr;
        for (std::size_t at = home(hash); slots_[at].record; at = after(at))
            if (slots_[at].hash == hash && is_it(slots_[at].record)) return slots_[at].record;
        return nullptr;
    }

    // Grows now if that many more records would make it grow, which takes long in a large corpus.
    void make_room(std::size_t more) {
        while (2 * (size_ + more) > capacity_) grow();
    }
    std::size_t size() const { return size_; }

    // REQUIRES: the record is not in the index.
    void insert(T *record, std::uint32_t hash) {
        make_room(1);
        put({record, hash});
        ++size_;
    }

    // REQUIRES: the record is in the index under this hash.
    void erase(const T *record, std::uint32_t hash) {
        std::size_t hole = home(hash);
        while (slots_[hole].record != record) hole = after(hole);
        // Whoever stands behind the hole and may stand in it moves up, so that no search ends too early.
        for (std::size_t at = after(hole); slots_[at].record; at = after(at)) {
            const std::size_t distance = (at - home(slots_[at].hash)) & mask();
            if (distance < ((at - hole) & mask())) continue;
            slots_[hole] = slots_[at];
            hole = at;
        }
        slots_[hole] = {};
        --size_;
    }

    // Ask memory for what find will look at: first the slot, some time later the record that it names.
    void prefetch_slot(std::uint32_t hash) const {
        if (size_ != 0) fetch_ahead(&slots_[home(hash)]);
    }
    void prefetch_record(std::uint32_t hash) const { fetch_ahead(guess(hash)); }

    // The record that find will most likely return, or null; no record is looked at.
    T *guess(std::uint32_t hash) const {
        if (size_ == 0) return nullptr;
        std::size_t at = home(hash);
        while (slots_[at].record && slots_[at].hash != hash) at = after(at);
        return slots_[at].record;
    }

    void clear() { *this = {}; }

    std::size_t bytes() const { return memory_.size(); }

  private:
    struct Slot {
        T *record;  // null: the slot is free
        std::uint32_t hash;
    };

    // The slots are in the order of their hashes, more or less: growing runs through memory from one end to
    // the other.
    std::size_t home(std::uint32_t hash) const { return hash >> shift_; }
    std::size_t mask() const { return capacity_ - 1; }
    std::size_t after(std::size_t at) const { return (at + 1) & mask(); }

    void put(const Slot &slot) {
        std::size_t at = home(slot.hash);
        while (slots_[at].record) at = after(at);
        slots_[at] = slot;
    }

    void grow() {
        const LargeMemory old_memory = std::move(memory_);
        const Slot *const old = slots_, *const end = old + capacity_;
        capacity_ = capacity_ ? 2 * capacity_ : 256;
        memory_ = LargeMemory(capacity_ * sizeof(Slot));
        slots_ = reinterpret_cast<Slot *>(memory_.data());
        shift_ = std::countl_zero(static_cast<std::uint32_t>(capacity_ - 1));
        for (const Slot *slot = old; slot != end; ++slot)
            if (slot->record) put(*slot);
    }

    LargeMemory memory_;
    Slot *slots_ = nullptr;
    std::size_t capacity_ = 0;  // the number of slots: a power of two, at most 2^31
    std::size_t size_ = 0;
    int shift_ = 0;
};

}  // namespace brindle
