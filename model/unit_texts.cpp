#include "model/unit_texts.hpp"

#include <cstring>

#include "base/limits.hpp"
#include "model/punctuation.hpp"

namespace brindle {

void UnitTexts::complete(const Units &units) {
    for (auto n = static_cast<std::uint32_t>(texts_.size()); n < units.end(); ++n) {
        const Unit &unit = units[n];
        const std::uint64_t start = used_;
        const auto add = [&](char mark, const Label *label) {
            const std::size_t size = label->size + (mark != 0);
            if (used_ + size + overrun > bytes_.size()) bytes_.resize(2 * (used_ + size + overrun));
            if (mark) bytes_[used_++] = mark;
            std::memcpy(&bytes_[used_], label->text(), label->size);
            used_ += label->size;
        };
        add(0, unit.syn);
        if (unit.sem) add(START_SEM_TAG, unit.sem);
        if (unit.lex) add(START_LEX_TAG, unit.lex);
        Text text = {};
        text.start = start & 0xf'ffff'ffff;
        text.size = (used_ - start) & 0x3ff'ffff;
        text.punctuation = punctuation(unit.syn);
        text.has_word = unit.lex != nullptr;
        texts_.push_back(text);
    }
}

}  // namespace brindle
