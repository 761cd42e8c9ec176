#pragma once
// An array of records that grows in place: records never move, so that both their numbers and their addresses
// stay good.
#include <cstdint>
#include <type_traits>

#include "base/reserved_memory.hpp"

namespace brindle {

// Records are zeroed when they come. Number 0 is never handed out by `add`: it says "none".
template <class T>
class GrowingArray {
    static_assert(std::is_trivially_destructible_v<T>);

  public:
    explicit GrowingArray(Pages pages = Pages::small) : memory_(most * sizeof(T), pages) {}

    // How many numbers are in use, number 0 included.
    std::uint32_t size() const { return size_; }

    T &operator[](std::uint32_t number) { return first()[number]; }
    const T &operator[](std::uint32_t number) const { return first()[number]; }
    std::uint32_t number_of(const T *record) const { return static_cast<std::uint32_t>(record - first()); }

    // The number of the first of so many new records. REQUIRES: there are less than `most` of them in all.
    std::uint32_t add(std::uint32_t n = 1) {
        const std::uint32_t number = size_;
        size_ += n;
        memory_.grow_to(std::size_t{size_} * sizeof(T));
        return number;
    }

    // Makes the records up to this number, so that every number below may be used without `add`.
    void cover(std::uint32_t number) {
        if (number >= size_) add(number + 1 - size_);
    }

    // Bytes of memory held.
    std::size_t bytes() const { return memory_.size(); }

    static constexpr std::size_t most = std::size_t{1} << 31;

  private:
    T *first() const { return reinterpret_cast<T *>(memory_.data()); }

    ReservedMemory memory_;
    std::uint32_t size_ = 1;
};

}  // namespace brindle
