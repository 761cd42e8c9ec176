#pragma once
// Memory in large pieces. A corpus is looked at in no order that memory could foresee, and on small pages
// most of those looks would first wait for the page's address.
#include <cstddef>

namespace brindle {

// One piece of zeroed memory, on huge pages where it is large enough and the system has them. Movable; frees
// the piece when it goes. No memory left ends the program.
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
