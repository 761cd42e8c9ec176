#pragma once
// A map for keys that come up anywhere in a large corpus: an open-addressing table whose places are small and
// can be fetched ahead of their use.
#include <cstddef>
#include <type_traits>
#include <utility>

#include "model/fetch_ahead.hpp"
#include "model/large_memory.hpp"

namespace brindle {

// Hash()(key) must have good low bits. The key Key{} marks free places and cannot be put in.
template <class Key, class Value, class Hash>
class FetchedMap {
    static_assert(std::is_trivially_copyable_v<Key> && std::is_trivially_copyable_v<Value>);

  public:
    // The value of the key, null if it has none; good until the next call of insert.
    Value *find(const Key &key) {
        if (capacity_ == 0) return nullptr;
        Place &place = place_of(key);
        return place.key == key ? &place.value : nullptr;
    }

    // Gives the key this value if it has none yet. Returns the key's value, good until the next call, and
    // whether it is new.
    std::pair<Value *, bool> insert(const Key &key, const Value &value) {
        if (2 * (size_ + 1) > capacity_) grow();
        Place &place = place_of(key);
        const bool is_new = !(place.key == key);
        if (is_new) {
            place = {key, value};
            ++size_;
        }
        return {&place.value, is_new};
    }

    // Asks memory for what the next call with this key will look at.
    void prefetch(const Key &key) const {
        if (capacity_ > 0) fetch_ahead(&places_[home(key)]);
    }

    std::size_t size() const { return size_; }

  private:
    struct Place {
        Key key;
        Value value;
    };

    std::size_t home(const Key &key) const { return Hash()(key) & (capacity_ - 1); }
    // Where the key stands, or would stand.
    Place &place_of(const Key &key) const {
        std::size_t at = home(key);
        while (!(places_[at].key == key) && !(places_[at].key == Key{})) at = (at + 1) & (capacity_ - 1);
        return places_[at];
    }

    void grow() {
        const LargeMemory old_memory = std::move(memory_);
        const Place *const old = places_, *const end = old + capacity_;
        capacity_ = capacity_ ? 2 * capacity_ : 256;
        memory_ = LargeMemory(capacity_ * sizeof(Place));
        places_ = reinterpret_cast<Place *>(memory_.data());
        for (const Place *place = old; place != end; ++place)
            if (!(place->key == Key{})) place_of(place->key) = *place;
    }

    LargeMemory memory_;  // zeroed, which is Key{}
    Place *places_ = nullptr;
    std::size_t capacity_ = 0;  // a power of two
    std::size_t size_ = 0;
};

}  // namespace brindle
