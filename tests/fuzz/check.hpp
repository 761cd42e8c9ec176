#pragma once
// What a fuzz target asserts.
#include <cstdio>
#include <cstdlib>

// Ends the run, so that the fuzzer keeps the input, unless the condition holds.
#define FUZZ_CHECK(condition)                                                                  \
    do {                                                                                       \
        if (!(condition)) {                                                                    \
            std::fprintf(stderr, "%s:%d: %s does not hold\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                      \
        }                                                                                      \
    } while (false)
