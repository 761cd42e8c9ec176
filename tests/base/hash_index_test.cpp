#include "base/hash_index.hpp"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace brindle {
namespace {

// Few different hashes, in heaps, also at the end of the slots, which goes on at their start.
std::uint32_t hash_of(std::uint32_t key) {
    return key % 3 == 0 ? 0xffffffffu - key % 5 : key % 3 == 1 ? key % 7 << 24 : key * 0x9e3779b9u;
}

TEST(hash_index, finds_what_is_in_it_and_nothing_else) {
    std::mt19937 random(1);
    HashIndex index;
    std::map<std::uint32_t, std::uint32_t> number_of;  // by key
    std::vector<std::uint32_t> keys{0};                // by number
    EXPECT_EQ(index.find(0, [](auto) { return true; }), 0u);
    for (int i = 0; i < 20'000; ++i) {
        const auto key = static_cast<std::uint32_t>(random() % 400);
        const std::uint32_t found = index.find(hash_of(key), [&](auto n) { return keys[n] == key; });
        const auto known = number_of.find(key);
        ASSERT_EQ(found, known == number_of.end() ? 0 : known->second) << key;
        ASSERT_EQ(index.size(), number_of.size());
        if (!found) {
            number_of[key] = static_cast<std::uint32_t>(keys.size());
            index.insert(static_cast<std::uint32_t>(keys.size()), hash_of(key));
            keys.push_back(key);
        } else if (random() % 2) {
            index.erase(found, hash_of(key));
            number_of.erase(known);
        }
    }
}

}  // namespace
}  // namespace brindle
