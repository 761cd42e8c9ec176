#pragma once
// The numbers of the tags of words, by which the DOP formats name them.
#include <cstddef>
#include <cstdint>

#include "model/fetch_ahead.hpp"
#include "model/large_memory.hpp"
#include "stats/parents.hpp"

namespace brindle {

struct LexEntry;
struct LexLink;

// Numbers the tags of a word from 0, for each category in the order of the word's list: all at once, when one
// of them is first asked for, so that later changes of the order change no number.
//
// A large corpus asks for every one of its words, each somewhere else in memory. So this is a table of its
// own, whose places are small and can be fetched before they are asked for.
class WordCodes {
  public:
    struct Code {
        const LexLink *link;  // null: the place is free
        std::uint32_t index;  // among the tags of the word in this category
        bool used;            // for the asker to set
    };

    // The code of one of the word's links; good until the next call.
    Code &code_of(const LexLink *link, const LexEntry *word);

    // Asks memory for what code_of will look at.
    void prefetch(const LexLink *link) const {
        if (capacity_ > 0) fetch_ahead(&codes_[home(link)]);
    }

  private:
    std::size_t home(const LexLink *link) const { return mix_hash(link, nullptr) & (capacity_ - 1); }
    // Where the link's code stands, or would stand.
    Code &place_of(const LexLink *link) const {
        std::size_t at = home(link);
        while (codes_[at].link && codes_[at].link != link) at = (at + 1) & (capacity_ - 1);
        return codes_[at];
    }
    void number_tags_of(const LexEntry *word);
    void insert(const LexLink *link, std::uint32_t index);
    void grow();

    LargeMemory memory_;
    Code *codes_ = nullptr;
    std::size_t capacity_ = 0;  // a power of two
    std::size_t size_ = 0;
};

}  // namespace brindle
