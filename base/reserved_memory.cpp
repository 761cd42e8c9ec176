#include "base/reserved_memory.hpp"

#include <sys/mman.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdint>

#include "base/error.hpp"

namespace brindle {
namespace {

constexpr std::size_t huge_page = std::size_t{1} << 21;

[[noreturn]] void no_memory() {
    system_error_exit("Calloc error in newarray()");
}

std::size_t rounded_up(std::size_t bytes, std::size_t to) {
    return (bytes + to - 1) / to * to;
}

// The system makes all pages of a range at once, which costs less than one after another on their first use.
void populate(std::byte *start, std::size_t bytes) {
#ifdef MADV_POPULATE_WRITE
    madvise(start, bytes, MADV_POPULATE_WRITE);  // an old system refuses: then they come one after another
#else
    (void)start, (void)bytes;
#endif
}

// Where the process may have few addresses only, no range takes more than a part of them.
std::size_t at_most(std::size_t bytes) {
    rlimit limit = {};
    if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return bytes;
    return std::min<std::size_t>(bytes, limit.rlim_cur / 16);
}

}  // namespace

ReservedMemory::ReservedMemory(std::size_t most, Pages pages) : pages_(pages) {
    most = at_most(most);
    void *range = MAP_FAILED;
    reserved_ = 2 * (rounded_up(most, huge_page) + huge_page);
    while (range == MAP_FAILED) {
        reserved_ /= 2;
        if (reserved_ < 2 * huge_page) no_memory();
        range = mmap(nullptr, reserved_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    }
    // The start is given back, so that the range begins where a huge page may begin.
    auto *const start = static_cast<std::byte *>(range);
    const std::size_t before = (huge_page - reinterpret_cast<std::uintptr_t>(start) % huge_page) % huge_page;
    if (before) munmap(start, before);
    data_ = start + before;
    reserved_ -= before;
}

ReservedMemory::~ReservedMemory() {
    munmap(data_, reserved_);
}

// A little at first, a sixteenth more at a time later, in whole huge pages once there are some.
void ReservedMemory::grow(std::size_t bytes) {
    if (bytes > reserved_) no_memory();
    constexpr std::size_t least = std::size_t{1} << 16;
    std::size_t size = std::max({bytes, size_ + size_ / 16, 2 * std::min(size_, huge_page), least});
    size = std::min(rounded_up(size, size > huge_page ? huge_page : least), reserved_);
    std::byte *const start = data_ + size_;
    if (mprotect(start, size - size_, PROT_READ | PROT_WRITE) != 0) no_memory();
    if (size > huge_page) {
        if (pages_ == Pages::huge) madvise(start, size - size_, MADV_HUGEPAGE);
        if (pages_ == Pages::small) populate(start, size - size_);
    }
    size_ = size;
}

}  // namespace brindle
