#pragma once
// Memory in large pieces.
#include <cstddef>

namespace brindle {

// Which pages a large piece lies on. What is looked at in no foreseeable order belongs on huge ones: on small
// pages most looks would first wait for the page's address. What is gone through in order does not need them,
// and in a virtual machine fresh huge pages may cost more than they save.
enum class Pages { small, huge };

// One piece of zeroed memory. Movable; frees the piece when it goes. No memory left ends the program.
class LargeMemory {
  public:
    LargeMemory() = default;
    explicit LargeMemory(std::size_t bytes, Pages pages = Pages::huge);
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
