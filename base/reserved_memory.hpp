#pragma once
// A range of addresses that fills with memory from its start: what lies in it never moves.
#include <cstddef>

namespace brindle {

// Which pages large memory lies on. What is looked at in no foreseeable order belongs on huge ones: on small
// pages most looks would first wait for the page's address. What is gone through in order does not need them,
// and in a virtual machine fresh huge pages may cost more than they save: small pages are made many at a
// time. Where only a few places of a long range will ever be used, pages come one by one, on demand.
enum class Pages { small, huge, on_demand };

class ReservedMemory {
  public:
    // Reserves addresses for so many bytes; where the system grants fewer, for what it grants. Takes no
    // memory yet.
    explicit ReservedMemory(std::size_t most, Pages pages = Pages::small);
    ~ReservedMemory();
    ReservedMemory(const ReservedMemory &) = delete;
    ReservedMemory &operator=(const ReservedMemory &) = delete;

    std::byte *data() const { return data_; }
    // Bytes that may be used, zeroed when they are new.
    std::size_t size() const { return size_; }
    // Makes that many bytes usable at least. No memory left ends the program.
    void grow_to(std::size_t bytes) {
        if (bytes > size_) grow(bytes);
    }

  private:
    void grow(std::size_t bytes);

    std::byte *data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t reserved_ = 0;
    Pages pages_;
};

}  // namespace brindle
