#pragma once
// Where the tokens of a tree's text probably start and end, found many bytes at a time. Bytes above 127 count
// as graphic, and brackets as those of a tag if the token has a tag at all. Whoever takes such a token for
// granted has read one of the same bytes with parse_token before (corpus/grammar.hpp).
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <bit>
#include <string_view>

#include "corpus/grammar.hpp"

namespace brindle {

inline bool is_likely_blank(char c) {
    return static_cast<unsigned char>(c) <= 0x20 || c == 0x7f;
}

// The first byte at or behind p that is none of the blanks below 128, or the end.
inline const char *likely_start(const char *p, const char *end) {
    if (p == end || !is_likely_blank(*p)) return p;
#ifdef __SSE2__
    const __m128i space = _mm_set1_epi8(0x20);
    for (; end - p >= 16; p += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
        const __m128i is_blank = _mm_cmpeq_epi8(_mm_min_epu8(bytes, space), bytes);
        if (const auto others = static_cast<unsigned>(_mm_movemask_epi8(is_blank)) ^ 0xffffu) {
            p += std::countr_zero(others);
            break;
        }
    }
#endif
    while (p != end && is_likely_blank(*p)) ++p;
    return p;
}

// The first byte at or behind p that is blank or a bracket, or the end.
inline const char *likely_stop(const char *p, const char *end) {
#ifdef __SSE2__
    const __m128i space = _mm_set1_epi8(0x20), even = _mm_set1_epi8(static_cast<char>(0xfe)),
                  open = _mm_set1_epi8('('), del = _mm_set1_epi8(0x7f);
    for (; end - p >= 16; p += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
        const __m128i is_blank =
            _mm_or_si128(_mm_cmpeq_epi8(_mm_min_epu8(bytes, space), bytes), _mm_cmpeq_epi8(bytes, del));
        const __m128i is_bracket = _mm_cmpeq_epi8(_mm_and_si128(bytes, even), open);
        const auto stops = static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(is_blank, is_bracket)));
        if (stops) return p + std::countr_zero(stops);
    }
#endif
    while (p != end && !is_likely_blank(*p) && *p != '(' && *p != ')') ++p;
    return p;
}

// The end of the token at p: beyond its tag's brackets, before the next blank; or the end of the text.
inline const char *likely_end(const char *p, const char *end) {
    const char *const start = p;
    p = likely_stop(p, end);
    if (p == end || *p != '(' || std::string_view(start, p).find(START_SEM_TAG) == std::string_view::npos)
        return p;
    for (long nesting = 0; p != end; ++p) {
        if (*p == '(')
            ++nesting;
        else if (*p == ')' ? nesting-- == 0 : is_likely_blank(*p))
            break;
    }
    return p;
}

}  // namespace brindle
