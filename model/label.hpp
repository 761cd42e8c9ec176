#pragma once
// The text of a label (category, tag or word), interned once in its corpus and for good.
//
// Units name their labels by reference to these records. Each record knows the label's place in the tables of
// stats/, so nobody on the way from a node to its statistics hashes or compares a string.
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "base/hash_index.hpp"
#include "base/reserved_memory.hpp"

namespace brindle {

struct LabelEntry;
struct LexEntry;

// The kinds of label in the label table; the numbers are part of the interface (displays use them as modes).
enum class LabelKind : int { SEM = 2, NONTERM = 4, TERM = 5 };

// So many bytes from the start of a label's text may be read whatever its size (writers copy short texts so).
inline constexpr std::size_t label_overrun = 16;

struct Label {
    std::uint32_t bucket;  // hash(text), 0..1998
    std::uint32_t size;    // bytes of text, its terminating zero not counted
    LabelEntry *sem;       // this text's entry as a semantic tag; null: it has none now
    LabelEntry *nonterm;   // as a category of nodes without a word
    LabelEntry *term;      // as a category of nodes with a word
    LexEntry *word;        // as a lexical item

    // The text; a zero byte follows it.
    const char *text() const { return reinterpret_cast<const char *>(this + 1); }
    std::string_view view() const { return {text(), size}; }

    // The place of this text's entry of one kind.
    LabelEntry *&entry(LabelKind kind) {
        return kind == LabelKind::SEM ? sem : kind == LabelKind::TERM ? term : nonterm;
    }
};

// How many buckets each label table has.
inline constexpr std::uint32_t nr_of_buckets = 1999;

// The bucket of a string: the PJW hash in its ELF form (Aho, Sethi and Ullman 1986, section 7.6; bytes from
// 0x80 up count as negative), modulo 1999. The empty string, which stands for "no label", has bucket 0.
std::uint32_t hash(std::string_view text);

// Short texts: a hash for HashIndex, and whether two are equal, without a call.
inline std::uint64_t bytes_at(const char *p, std::size_t n) {
    std::uint64_t number = 0;
    std::memcpy(&number, p, n);
    return number;
}

inline std::uint32_t text_hash(std::string_view text) {
    constexpr std::uint64_t factor = 0x9e3779b97f4a7c15u;
    const char *p = text.data();
    std::size_t n = text.size();
    std::uint64_t h = n * factor;
    for (; n > 8; p += 8, n -= 8) h = (std::rotl(h, 29) ^ bytes_at(p, 8)) * factor;
    std::uint64_t last = 0;
    if (n >= 4)
        last = bytes_at(p, 4) << 32 | bytes_at(p + n - 4, 4);
    else if (n > 0)
        last = bytes_at(p, 1) << 16 | bytes_at(p + n / 2, 1) << 8 | bytes_at(p + n - 1, 1);
    h = (std::rotl(h, 29) ^ last) * factor;
    h = (h ^ (h >> 32)) * factor;
    return static_cast<std::uint32_t>(h >> 32);
}

inline bool same_text(std::string_view text, const char *other) {
    const char *const p = text.data();
    const std::size_t n = text.size();
    if (n < 4) return n == 0 || (p[0] == other[0] && p[n / 2] == other[n / 2] && p[n - 1] == other[n - 1]);
    if (n < 8)
        return bytes_at(p, 4) == bytes_at(other, 4) && bytes_at(p + n - 4, 4) == bytes_at(other + n - 4, 4);
    for (std::size_t i = 0; i + 8 < n; i += 8)
        if (bytes_at(p + i, 8) != bytes_at(other + i, 8)) return false;
    return bytes_at(p + n - 8, 8) == bytes_at(other + n - 8, 8);
}

// The labels of one corpus. They live as long as it does, and own their bytes.
class Labels {
  public:
    Labels();

    // The one record of a text, made on its first use. The hash is that of text_hash.
    Label *intern(std::string_view text) { return intern(text, text_hash(text)); }
    Label *intern(std::string_view text, std::uint32_t hash);
    // The record of a text if it has one, else null. Makes nothing.
    Label *find(std::string_view text) const { return find(text, text_hash(text)); }

    // Labels by number, for records that are to be small; 0: no label.
    Label *operator[](std::uint32_t number) { return number ? at(number) : nullptr; }
    std::uint32_t number_of(const Label *label) const {
        if (!label) return 0;
        const auto place = reinterpret_cast<const std::byte *>(label) - memory_.data();
        return static_cast<std::uint32_t>(static_cast<std::size_t>(place) / alignment);
    }

    // Ask memory for what intern will look at: first the slot, some time later the label.
    void fetch_slot(std::uint32_t hash) const { index_.fetch_slot(hash); }
    void fetch_label(std::uint32_t hash) const {
        const Label *const label = at(index_.guess(hash));
        fetch_ahead(label);
        fetch_ahead(label->text());
    }

    // Bytes held.
    std::size_t bytes() const { return memory_.size() + index_.bytes(); }

  private:
    // Labels lie one behind another; a label's number is its place in units of so many bytes.
    static constexpr std::size_t alignment = 8;

    Label *at(std::uint32_t number) const {
        return reinterpret_cast<Label *>(memory_.data() + alignment * number);
    }
    Label *find(std::string_view text, std::uint32_t hash) const;

    ReservedMemory memory_;
    std::size_t used_;
    HashIndex index_;
};

// For output of optional labels: the text, or "" for null.
inline std::string_view text_of(const Label *label) {
    return label ? label->view() : std::string_view();
}

// Copies the label's text to `to` and returns its end there. REQUIRES room for the text and label_overrun
// more bytes: a short text, as nearly all are, is copied without looking at its length.
inline char *copy_label(char *to, const Label *label) {
    std::memcpy(to, label->text(), label_overrun);
    if (label->size > label_overrun) std::memcpy(to, label->text(), label->size);
    return to + label->size;
}

}  // namespace brindle
