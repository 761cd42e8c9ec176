#pragma once
// Memory in large pieces, on huge pages where it fills some.
#include <cstddef>

namespace brindle {

// One piece of zeroed memory. Movable; frees the piece when it goes. No memory left ends the program.
class LargeMemory {
  public:
    LargeMemory() = default;
    explicit LargeMemory(std::size_t bytes);
    ~LargeMemory();
    LargeMemory(LargeMemory &&other) noexcept;
    LargeMemory &operator=(LargeMemory &&other) noexcept;

    // Aligned to 64 bytes at least.
    std::byte *data() const { return data_; }
    std::size_t size() const { return size_; }

    // The size of a huge page: pieces of whole multiples waste none.
    static constexpr std::size_t huge_page = std::size_t{1} << 21;

  private:
    std::byte *data_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace brindle
