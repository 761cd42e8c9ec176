#pragma once
// The numbers of the tags of words, by which the DOP formats name them.
#include <cstdint>
#include <span>
#include <vector>

#include "corpus/fetched_map.hpp"
#include "stats/parents.hpp"

namespace brindle {

struct LexEntry;
struct LexLink;

// The low bits of addresses are alike, so tables must not use them as they are.
struct HashOfAddress {
    std::size_t operator()(const void *record) const { return mix_hash(record, nullptr); }
};

// Numbers the tags of a word from 0, for each category in the order of the word's list: all at once, when one
// of them is first asked for, so that later changes of the order change no number.
class WordCodes {
  public:
    struct Code {
        std::uint32_t index;  // among the tags of the word in this category
        bool used;            // for the asker to set
    };

    // The code of one of the word's links; good until the next call. Ends the program with "Fault in
    // hashtable!?" if the word has no such link with a tag.
    Code &code_of(const LexLink *link, const LexEntry *word);

    // Asks memory for what code_of will look at.
    void prefetch(const LexLink *link) const { codes_.prefetch(link); }
    // Some time after that, for the words of these links: asks memory for all links of those whose tags have
    // no numbers yet.
    void prefetch_words(std::span<const LexLink *const> links);

  private:
    void number_tags_of(const LexEntry *word);

    // On its way along a word's list to one of its ends.
    struct Walker {
        const LexLink *at;
        bool forward;
    };

    std::vector<Walker> walkers_;
    FetchedMap<const LexLink *, Code, HashOfAddress> codes_;
};

}  // namespace brindle
