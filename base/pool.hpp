#pragma once
// Records of one type, handed out zeroed from large blocks and taken back one by one. A pool frees its blocks
// only with itself, so a record's address stays good until it is released.
#include <algorithm>
#include <cstddef>
#include <new>
#include <type_traits>
#include <vector>

#include "base/large_memory.hpp"

namespace brindle {

template <class T>
class Pool {
    static_assert(std::is_trivially_destructible_v<T>);

  public:
    // A new value-initialised record; the pool owns it.
    T *make() {
        Slot *slot = free_;
        if (slot) {
            free_ = slot->next;
        } else {
            if (next_ == end_) add_block();
            slot = next_++;
        }
        return new (&slot->record) T{};
    }

    // Takes a record back; it must have come from this pool.
    void release(T *record) {
        auto *slot = reinterpret_cast<Slot *>(record);
        slot->next = free_;
        free_ = slot;
    }

    // Takes all records back at once.
    void clear() {
        blocks_.clear();
        free_ = next_ = end_ = nullptr;
        bytes_ = 0;
    }

    // Bytes of memory held.
    std::size_t bytes() const { return bytes_; }

  private:
    union Slot {
        Slot() {}
        T record;
        Slot *next;
    };

    // A pool that holds little takes little; one that grows takes whole huge pages.
    void add_block() {
        const std::size_t size = std::clamp<std::size_t>(bytes_ / 4, 1 << 14, LargeMemory::huge_page);
        const LargeMemory &block = blocks_.emplace_back(size);
        next_ = reinterpret_cast<Slot *>(block.data());
        end_ = next_ + block.size() / sizeof(Slot);
        bytes_ += block.size();
    }

    std::vector<LargeMemory> blocks_;
    Slot *free_ = nullptr;
    Slot *next_ = nullptr;  // the first slot of the last block that was never used
    Slot *end_ = nullptr;
    std::size_t bytes_ = 0;
};

}  // namespace brindle
