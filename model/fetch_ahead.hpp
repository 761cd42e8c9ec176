#pragma once
// Asking memory for what will be looked at some time later.

namespace brindle {

// Starts to bring what lies at the address near the processor; null or any other address does no harm.
inline void fetch_ahead(const void *address) {
    __builtin_prefetch(address);
    // Without this the compiler takes a function that only fetches for one without effect, and leaves it out.
    asm volatile("");
}

}  // namespace brindle
