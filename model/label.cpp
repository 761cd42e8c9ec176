#include "model/label.hpp"

#include <cstring>
#include <new>

namespace brindle {
namespace {

constexpr std::size_t most_bytes = std::size_t{1} << 35;

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

Labels::Labels() : memory_(most_bytes, Pages::huge), used_(alignment) {}  // number 0 is none

Label *Labels::find(std::string_view text, std::uint32_t text_hash) const {
    const auto is_it = [&](std::uint32_t number) {
        return at(number)->size == text.size() && same_text(text, at(number)->text());
    };
    const std::uint32_t number = index_.find(text_hash, is_it);
    return number ? at(number) : nullptr;
}

Label *Labels::intern(std::string_view text, std::uint32_t text_hash) {
    if (Label *label = find(text, text_hash)) return label;
    const std::size_t size = sizeof(Label) + text.size() + 1;
    const auto number = static_cast<std::uint32_t>(used_ / alignment);
    used_ += (size + alignment - 1) / alignment * alignment;
    memory_.grow_to(used_ + label_overrun);
    auto *label = new (at(number))
        Label{hash(text), static_cast<std::uint32_t>(text.size()), nullptr, nullptr, nullptr, nullptr};
    char *copy = reinterpret_cast<char *>(label + 1);
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    index_.insert(number, text_hash);
    return label;
}

}  // namespace brindle
