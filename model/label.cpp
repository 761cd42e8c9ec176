#include "model/label.hpp"

#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <vector>

#include <tsl/robin_set.h>

namespace brindle {
namespace {

struct LabelHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    std::size_t operator()(const Label *label) const { return (*this)(label->view()); }
};

struct LabelEqual {
    using is_transparent = void;
    static std::string_view view(std::string_view text) { return text; }
    static std::string_view view(const Label *label) { return label->view(); }
    template <class A, class B>
    bool operator()(const A &a, const B &b) const {
        return view(a) == view(b);
    }
};

// Labels of any length, one behind another in blocks that are never freed.
class LabelArena {
  public:
    void *allocate(std::size_t size) {
        size = (size + alignof(Label) - 1) / alignof(Label) * alignof(Label);
        if (size > left_) {
            const std::size_t block = size > block_size ? size : block_size;
            blocks_.push_back(std::make_unique<std::byte[]>(block + label_overrun));
            next_ = blocks_.back().get();
            left_ = block;
            total_ += block;
        }
        void *place = next_;
        next_ += size;
        left_ -= size;
        return place;
    }
    std::size_t total() const { return total_; }

  private:
    static constexpr std::size_t block_size = 1 << 18;
    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::byte *next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t total_ = 0;
};

// Interned labels must outlive every static object that names one, so neither is ever destroyed.
using LabelSet = tsl::robin_set<Label *, LabelHash, LabelEqual, std::allocator<Label *>, true>;
LabelSet &labels() {
    static auto *set = new LabelSet;
    return *set;
}
LabelArena &arena() {
    static auto *the_arena = new LabelArena;
    return *the_arena;
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

Label *intern(std::string_view text) {
    const std::size_t h = LabelHash()(text);
    auto &set = labels();
    if (const auto found = set.find(text, h); found != set.end()) return *found;
    void *place = arena().allocate(sizeof(Label) + text.size() + 1);
    auto *label = new (place)
        Label{hash(text), static_cast<std::uint32_t>(text.size()), nullptr, nullptr, nullptr, nullptr};
    char *copy = reinterpret_cast<char *>(label + 1);
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    set.insert(label);
    return label;
}

Label *find_label(std::string_view text) {
    const auto found = labels().find(text);
    return found == labels().end() ? nullptr : *found;
}

std::size_t label_bytes() {
    return arena().total() + labels().bucket_count() * 2 * sizeof(void *);
}

}  // namespace brindle
