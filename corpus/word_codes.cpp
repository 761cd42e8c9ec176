#include "corpus/word_codes.hpp"

#include <utility>
#include <vector>

#include <tsl/robin_map.h>

#include "stats/tables.hpp"

namespace brindle {
namespace {

// Counts for each category how often it has been asked for. Few categories are walked through, many are
// looked up.
class CategoryCounts {
  public:
    std::uint32_t next(const LabelEntry *syn) {
        if (!many_.empty()) return many_[syn]++;
        for (auto &[category, number] : few_)
            if (category == syn) return number++;
        few_.emplace_back(syn, 1);
        if (few_.size() > most_for_a_walk) many_.insert(few_.begin(), few_.end());
        return 0;
    }

  private:
    static constexpr std::size_t most_for_a_walk = 16;
    std::vector<std::pair<const LabelEntry *, std::uint32_t>> few_;
    tsl::robin_map<const LabelEntry *, std::uint32_t> many_;
};

}  // namespace

WordCodes::Code &WordCodes::code_of(const LexLink *link, const LexEntry *word) {
    if (capacity_ > 0)
        if (Code &code = place_of(link); code.link) return code;
    number_tags_of(word);
    Code &code = place_of(link);
    if (!code.link) fault_in_hashtable();
    return code;
}

void WordCodes::number_tags_of(const LexEntry *word) {
    CategoryCounts counts;
    for (const LexLink *link = word->links.first(); link; link = link->next)
        if (link->sem->name) insert(link, counts.next(link->syn));
}

// A link that has its number keeps it.
void WordCodes::insert(const LexLink *link, std::uint32_t index) {
    if (2 * (size_ + 1) > capacity_) grow();
    Code &code = place_of(link);
    if (code.link) return;
    code = {link, index, false};
    ++size_;
}

void WordCodes::grow() {
    const LargeMemory old_memory = std::move(memory_);
    const Code *const old = codes_, *const end = old + capacity_;
    capacity_ = capacity_ ? 2 * capacity_ : 1024;
    memory_ = LargeMemory(capacity_ * sizeof(Code));
    codes_ = reinterpret_cast<Code *>(memory_.data());
    for (const Code *code = old; code != end; ++code)
        if (code->link) place_of(code->link) = *code;
}

}  // namespace brindle
