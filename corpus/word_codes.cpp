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
    void clear() {
        few_.clear();
        many_.clear();
    }

  private:
    static constexpr std::size_t most_for_a_walk = 16;
    std::vector<std::pair<const LabelEntry *, std::uint32_t>> few_;
    tsl::robin_map<const LabelEntry *, std::uint32_t, HashOfAddress> many_;
};

// Whether the word has two tags in any category; `counts` is room for counting.
bool has_choice(const LexEntry *word, CategoryCounts &counts) {
    if (word->links.length() <= 1) return false;
    counts.clear();
    bool choice = false;
    word->links.for_each([&](const LexLink *link) {
        if (!choice && link->sem->name) choice = counts.next(link->syn) > 0;
    });
    return choice;
}

}  // namespace

WordCodes::Code &WordCodes::code_of(const LexLink *link, const LexEntry *word) {
    Code *code = codes_.find(link);
    if (!code && link) {
        number_tags_of(word);
        code = codes_.find(link);
    }
    if (!code) fault_in_hashtable();
    return *code;
}

// Each step on a list waits for memory, so all lists are walked at once, each from the known link to both
// ends.
void WordCodes::prefetch_words(std::span<const LexLink *const> links) {
    walkers_.clear();
    for (const LexLink *link : links) {
        if (codes_.find(link)) continue;
        walkers_.push_back({link, true});
        walkers_.push_back({link, false});
    }
    while (!walkers_.empty()) {
        for (std::size_t i = 0; i < walkers_.size();) {
            auto &[at, forward] = walkers_[i];
            fetch_ahead(at->sem);
            codes_.prefetch(at);
            at = forward ? at->next : at->prev;
            if (!at) {
                walkers_[i] = walkers_.back();
                walkers_.pop_back();
                continue;
            }
            fetch_ahead(at);
            fetch_ahead(&at->next);
            ++i;
        }
    }
}

// Most words have one tag in a category, which is number 0: their lists need not be put in order. A link that
// has its number keeps it.
void WordCodes::number_tags_of(const LexEntry *word) {
    CategoryCounts counts;
    const auto number = [&](const LexLink *link, std::uint32_t index) {
        if (link->sem->name) codes_.insert(link, {index, false});
    };
    if (!has_choice(word, counts)) return word->links.for_each([&](const LexLink *link) { number(link, 0); });
    counts.clear();
    for (const LexLink *link = word->links.first(); link; link = link->next)
        if (link->sem->name) number(link, counts.next(link->syn));
}

}  // namespace brindle
