#pragma once
// A small hash map from tags to slot numbers that is emptied in constant time: the proposal fills one at
// every node with daughters.
#include <cstdint>
#include <vector>

namespace brindle {

struct Label;

class TagSlots {
  public:
    static constexpr std::uint32_t none = ~std::uint32_t{0};

    // Forgets all tags.
    void clear() {
        ++round_;
        size_ = 0;
    }
    // How many tags have slots; these are numbered 0 to size() - 1 in the order of their first `add`.
    std::uint32_t size() const { return size_; }

    // The slot of a tag, or `none`.
    std::uint32_t find(const Label *tag) const {
        const Place &place = places_[place_of(tag)];
        return place.round == round_ ? place.slot : none;
    }
    // The slot of a tag, a new one if it had none.
    std::uint32_t add(const Label *tag) {
        if (2 * (size_ + 1) > places_.size()) grow();
        Place &place = places_[place_of(tag)];
        if (place.round != round_) place = {tag, round_, size_++};
        return place.slot;
    }

  private:
    struct Place {
        const Label *tag = nullptr;
        std::uint32_t round = 0;  // the place is taken if it was filled in the present round
        std::uint32_t slot = 0;
    };

    // Where the tag is, or where it would go. The number of places is a power of two.
    std::size_t place_of(const Label *tag) const {
        const std::size_t mask = places_.size() - 1;
        std::size_t at = (reinterpret_cast<std::uintptr_t>(tag) >> 4) * 0x9e3779b97f4a7c15u >> 32 & mask;
        while (places_[at].round == round_ && places_[at].tag != tag) at = (at + 1) & mask;
        return at;
    }

    void grow() {
        std::vector<Place> old(places_.size() * 2);
        old.swap(places_);
        for (const Place &place : old)
            if (place.round == round_) places_[place_of(place.tag)] = place;
    }

    std::vector<Place> places_ = std::vector<Place>(64);
    std::uint32_t round_ = 1;
    std::uint32_t size_ = 0;
};

}  // namespace brindle
