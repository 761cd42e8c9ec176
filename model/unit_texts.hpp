#pragma once
// How the nodes of a unit are written: "category|tag/word", made once a unit. A writer so looks at one place
// a node instead of a unit, its labels and their texts.
#include <vector>

#include "model/unit.hpp"

namespace brindle {

class UnitTexts {
  public:
    // So many bytes from the start of a text may be read whatever its size.
    static constexpr std::size_t overrun = 32;

    struct Text {
        std::uint64_t start : 36;
        std::uint64_t size : 26;
        std::uint64_t punctuation : 1;  // the category is
        std::uint64_t has_word : 1;
    };

    // Makes the texts of the units that have none yet. Not while others read.
    void complete(const Units &units);
    const Text &of(std::uint32_t unit) const { return texts_[unit]; }
    const char *bytes(const Text &text) const { return &bytes_[text.start]; }

  private:
    std::vector<Text> texts_ = std::vector<Text>(1);  // by the unit's number
    std::vector<char> bytes_ = std::vector<char>(overrun);
    std::size_t used_ = 0;
};

}  // namespace brindle
