#include "base/large_memory.hpp"

#include <sys/mman.h>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/error.hpp"

namespace brindle {
namespace {

bool is_large(std::size_t bytes) {
    return bytes >= LargeMemory::huge_page;
}

[[noreturn]] void no_memory() {
    system_error_exit("Calloc error in newarray()");
}

std::byte *map(std::size_t bytes) {
    void *mapped = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) no_memory();
    return static_cast<std::byte *>(mapped);
}

// A mapping that begins where a huge page may begin: one page too much is asked for, both ends are given
// back.
std::byte *map_huge(std::size_t bytes) {
    constexpr std::size_t page = LargeMemory::huge_page;
    std::byte *const start = map(bytes + page);
    const std::size_t before = (page - reinterpret_cast<std::uintptr_t>(start) % page) % page;
    if (before) munmap(start, before);
    munmap(start + before + bytes, page - before);
    madvise(start + before, bytes, MADV_HUGEPAGE);
    return start + before;
}

constexpr std::size_t small_page = 4096;

}  // namespace

LargeMemory::LargeMemory(std::size_t bytes) : size_((bytes + small_page - 1) / small_page * small_page) {
    if (is_large(size_)) {
        data_ = map_huge(size_);
    } else {
        void *piece = std::aligned_alloc(64, size_);
        if (!piece) no_memory();
        data_ = static_cast<std::byte *>(std::memset(piece, 0, size_));
    }
}

LargeMemory::~LargeMemory() {
    if (is_large(size_))
        munmap(data_, size_);
    else
        std::free(data_);
}

LargeMemory::LargeMemory(LargeMemory &&other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

LargeMemory &LargeMemory::operator=(LargeMemory &&other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
}

}  // namespace brindle
