#include "model/label.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <vector>

#include "model/large_memory.hpp"
#include "model/record_index.hpp"

namespace brindle {
namespace {

// Labels of any length, one behind another in blocks that are never freed.
class LabelArena {
  public:
    void *allocate(std::size_t size) {
        size = (size + alignment - 1) / alignment * alignment;
        if (size > left_) {
            const std::size_t block = std::clamp<std::size_t>(total_, 1 << 16, LargeMemory::huge_page);
            const LargeMemory &memory = blocks_.emplace_back(std::max(size + label_overrun, block));
            next_ = memory.data();
            left_ = memory.size() - label_overrun;
            total_ += memory.size();
        }
        void *place = next_;
        next_ += size;
        left_ -= size;
        return place;
    }
    std::size_t total() const { return total_; }

  private:
    static constexpr std::size_t alignment = 64;
    std::vector<LargeMemory> blocks_;
    std::byte *next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t total_ = 0;
};

// Interned labels must outlive every static object that names one, so neither is ever destroyed.
RecordIndex<Label> &labels() {
    static auto *index = new RecordIndex<Label>;
    return *index;
}
LabelArena &arena() {
    static auto *the_arena = new LabelArena;
    return *the_arena;
}

// Eight bytes, or the first of them, as a number.
inline std::uint64_t bytes_at(const char *p, std::size_t n) {
    std::uint64_t number = 0;
    std::memcpy(&number, p, n);
    return number;
}

// The hash by which labels are found; hash() is the tables' own, whose buckets are few.
std::uint32_t index_hash(std::string_view text) {
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

// Whether two texts of the same length are equal; labels are too short for a call to be worth it.
bool same_bytes(const char *a, const char *b, std::size_t n) {
    if (n < 4) return n == 0 || (a[0] == b[0] && a[n / 2] == b[n / 2] && a[n - 1] == b[n - 1]);
    if (n < 8) return bytes_at(a, 4) == bytes_at(b, 4) && bytes_at(a + n - 4, 4) == bytes_at(b + n - 4, 4);
    for (std::size_t i = 0; i + 8 < n; i += 8)
        if (bytes_at(a + i, 8) != bytes_at(b + i, 8)) return false;
    return bytes_at(a + n - 8, 8) == bytes_at(b + n - 8, 8);
}

Label *find(std::string_view text, std::uint32_t h) {
    return labels().find(h, [text](const Label *label) {
        return label->size == text.size() && same_bytes(label->text(), text.data(), text.size());
    });
}

}  // namespace

std::uint32_t hash(std::string_view text) {
    std::uint32_t h = 0;
    for (const char c : text) {
        h = (h << 4) + static_cast<std::uint32_t>(static_cast<signed char>(c));
        const std::uint32_t top = h & 0xf0000000u;
        if (top) h = (h ^ (top >> 24)) ^ top;
    }
    return h % nr_of_buckets;
}

namespace {

Label *intern(std::string_view text, std::uint32_t h) {
    if (Label *label = find(text, h)) return label;
    void *place = arena().allocate(sizeof(Label) + text.size() + 1);
    auto *label = new (place)
        Label{hash(text), static_cast<std::uint32_t>(text.size()), nullptr, nullptr, nullptr, nullptr};
    char *copy = reinterpret_cast<char *>(label + 1);
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    labels().insert(label, h);
    return label;
}

}  // namespace

Label *intern(std::string_view text) {
    return intern(text, index_hash(text));
}

Unnamed::Unnamed(std::string_view t, Label **p) : text(t), place(p), hash(index_hash(t)) {
    labels().prefetch_slot(hash);
}

void intern(std::span<const Unnamed> texts) {
    for (const Unnamed &unnamed : texts) *unnamed.place = intern(unnamed.text, unnamed.hash);
}

void prefetch(std::span<const Unnamed> texts) {
    for (const Unnamed &unnamed : texts) labels().prefetch_record(unnamed.hash);
}

Label *find_label(std::string_view text) {
    return find(text, index_hash(text));
}

std::size_t label_bytes() {
    return arena().total() + labels().bytes();
}

}  // namespace brindle
