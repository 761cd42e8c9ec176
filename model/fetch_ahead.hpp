#pragma once
// Asking memory for what will be looked at some time later.

#include <cstddef>

namespace brindle {

// Starts to bring what lies at the address near the processor; null or any other address does no harm.
inline void fetch_ahead(const void *address) {
    __builtin_prefetch(address);
    // Without this the compiler takes a function that only fetches for one without effect, and leaves it out.
    asm volatile("");
}

// The same for every byte of a record, which may lie on several cache lines.
template <class Record>
inline void fetch_whole_ahead(const Record *record) {
    constexpr std::size_t cache_line = 64;
    const auto *const bytes = reinterpret_cast<const char *>(record);
    for (std::size_t at = 0; at < sizeof(Record); at += cache_line) fetch_ahead(bytes + at);
    fetch_ahead(bytes + sizeof(Record) - 1);
}

}  // namespace brindle
