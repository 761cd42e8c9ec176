#pragma once
// Finds numbered records by their keys: an open-addressing table of small slots that hold enough of the hash
// to pass over strangers without looking at them, and that can be asked for ahead of their use.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/large_memory.hpp"

namespace brindle {

// Starts to bring what lies at the address near the processor; any address does no harm.
inline void fetch_ahead(const void *address) {
    __builtin_prefetch(address);
    // Without this the compiler takes a function that only fetches for one without effect, and leaves it out.
    asm volatile("");
}

// A hash of three numbers for HashIndex. The products do not wait for each other.
inline std::uint32_t mix_hash(std::uint64_t a, std::uint64_t b, std::uint64_t c = 0) {
    std::uint64_t h = a * 0xa0761d6478bd642fu + b * 0xe7037ed1a0b428dbu + c * 0x8ebc6af09c88c6e3u;
    h = (h ^ (h >> 32)) * 0x9e3779b97f4a7c15u;
    return static_cast<std::uint32_t>(h >> 32);
}

class HashIndex {
  public:
    // The number with this hash for which `is_it` is true, or 0.
    template <class IsIt>
    std::uint32_t find(std::uint32_t hash, IsIt &&is_it) const {
        if (size_ == 0) return 0;
        for (std::size_t at = home(hash); slots_[at].number; at = after(at))
            if (slots_[at].hash == hash && is_it(slots_[at].number)) return slots_[at].number;
        return 0;
    }

    // REQUIRES: the number, which is not 0, is not in the index.
    void insert(std::uint32_t number, std::uint32_t hash) {
        make_room(1);
        put({number, hash});
        ++size_;
    }

    // REQUIRES: the number is in the index under this hash.
    void erase(std::uint32_t number, std::uint32_t hash) {
        std::size_t hole = home(hash);
        while (slots_[hole].number != number) hole = after(hole);
        // Whoever stands behind the hole and may stand in it moves up, so that no search ends too early.
        for (std::size_t at = after(hole); slots_[at].number; at = after(at)) {
            const std::size_t distance = (at - home(slots_[at].hash)) & mask();
            if (distance < ((at - hole) & mask())) continue;
            slots_[hole] = slots_[at];
            hole = at;
        }
        slots_[hole] = {};
        --size_;
    }

    // Grows now if that many more numbers would make it grow, which takes long in a large corpus.
    void make_room(std::size_t more) {
        while (3 * (size_ + more) > 2 * capacity_) grow();
    }
    std::size_t size() const { return size_; }

    // Asks memory for the slot that find will look at first.
    void fetch_slot(std::uint32_t hash) const {
        if (size_ != 0) fetch_ahead(&slots_[home(hash)]);
    }
    // The number that find will most likely return, or 0; no record is looked at.
    std::uint32_t guess(std::uint32_t hash) const {
        if (size_ == 0) return 0;
        std::size_t at = home(hash);
        while (slots_[at].number && slots_[at].hash != hash) at = after(at);
        return slots_[at].number;
    }

    std::size_t bytes() const { return memory_.size(); }

  private:
    struct Slot {
        std::uint32_t number;  // 0: the slot is free
        std::uint32_t hash;
    };

    // The slots are in the order of their hashes, more or less: growing runs through memory from one end to
    // the other.
    std::size_t home(std::uint32_t hash) const { return hash >> shift_; }
    std::size_t mask() const { return capacity_ - 1; }
    std::size_t after(std::size_t at) const { return (at + 1) & mask(); }

    void put(const Slot &slot) {
        std::size_t at = home(slot.hash);
        while (slots_[at].number) at = after(at);
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
            if (slot->number) put(*slot);
    }

    LargeMemory memory_;
    Slot *slots_ = nullptr;
    std::size_t capacity_ = 0;  // the number of slots: a power of two, at most 2^31
    std::size_t size_ = 0;
    int shift_ = 0;
};

}  // namespace brindle
