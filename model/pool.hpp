#pragma once
// Records of one type, handed out zeroed from large blocks and taken back one by one. A pool frees its blocks
// only with itself, so a record's address stays good until it is released.
#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

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
            if (used_ == block_size) add_block();
            slot = &blocks_.back()[used_++];
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
        free_ = nullptr;
        used_ = block_size;
    }

    // Bytes of memory held.
    std::size_t bytes() const { return blocks_.size() * block_size * sizeof(Slot); }

  private:
    union Slot {
        Slot() {}
        T record;
        Slot *next;
    };
    static constexpr std::size_t block_size = (1 << 18) / sizeof(Slot) + 1;

    void add_block() {
        blocks_.push_back(std::unique_ptr<Slot[]>(new Slot[block_size]));
        used_ = 0;
    }

    std::vector<std::unique_ptr<Slot[]>> blocks_;
    Slot *free_ = nullptr;
    std::size_t used_ = block_size;
};

}  // namespace brindle
