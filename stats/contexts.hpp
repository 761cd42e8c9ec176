#pragma once
// Mother contexts: under which mothers, and where among their daughters, the nodes of a unit stand.
//
// Every unit with a word has its own list of contexts, and the pair of its category and tag has another one
// for all words; a unit without a word is its own pair. The lists are ranked.
#include <cstdint>

#include "model/node.hpp"
#include "stats/ranked_list.hpp"

namespace brindle {

// A place under some mother: whose daughter, which one, of how many.
struct Context {
    std::uint32_t unit;       // of the node; a number
    std::uint32_t mother;     // the mother's unit, a number
    std::int32_t dtr_nr;      // 1-based position among the daughters
    std::int32_t nr_of_dtrs;  // number of the mother's daughters
    std::int32_t count;       // how often nodes of the unit stand there
    std::int32_t checked_count;
    RankHook by_unit;

    bool is(std::uint32_t u, std::uint32_t m, std::int32_t nr, std::int32_t of) const {
        return unit == u && mother == m && dtr_nr == nr && nr_of_dtrs == of;
    }
};

inline std::uint32_t context_hash(std::uint32_t unit, std::uint32_t mother, std::int32_t dtr_nr,
                                  std::int32_t nr_of_dtrs) {
    return mix_hash(
        std::uint64_t{unit} << 32 | mother,
        std::uint64_t{static_cast<std::uint32_t>(dtr_nr)} << 32 | static_cast<std::uint32_t>(nr_of_dtrs));
}

// The contexts of one corpus, interned as long as they are counted.
class Contexts {
  public:
    Contexts() : contexts_(Pages::huge) {}

    Context &operator[](std::uint32_t number) { return contexts_[number]; }
    const Context &operator[](std::uint32_t number) const { return contexts_[number]; }
    // One more than the highest number.
    std::uint32_t end() const { return contexts_.size(); }

    // The context's number; 0: it is not there.
    std::uint32_t find(std::uint32_t unit, std::uint32_t mother, std::int32_t dtr_nr,
                       std::int32_t nr_of_dtrs) const {
        return find(context_hash(unit, mother, dtr_nr, nr_of_dtrs), unit, mother, dtr_nr, nr_of_dtrs);
    }
    std::uint32_t find(std::uint32_t hash, std::uint32_t unit, std::uint32_t mother, std::int32_t dtr_nr,
                       std::int32_t nr_of_dtrs) const {
        return index_.find(hash, [&](std::uint32_t number) {
            return contexts_[number].is(unit, mother, dtr_nr, nr_of_dtrs);
        });
    }

    // A new context, not counted yet and in no list. REQUIRES: it is not there.
    std::uint32_t add(std::uint32_t hash, std::uint32_t unit, std::uint32_t mother, std::int32_t dtr_nr,
                      std::int32_t nr_of_dtrs) {
        std::uint32_t number = free_;
        if (number)
            free_ = contexts_[number].by_unit.next;
        else
            number = contexts_.add();
        contexts_[number] = {unit, mother, dtr_nr, nr_of_dtrs, 0, 0, {}};
        index_.insert(number, hash);
        return number;
    }
    // Takes a context back that is in no list any more.
    void release(std::uint32_t number) {
        Context &c = contexts_[number];
        index_.erase(number, context_hash(c.unit, c.mother, c.dtr_nr, c.nr_of_dtrs));
        c = {};
        c.by_unit.next = free_;
        free_ = number;
    }

    // For the reader, which looks for many at once: ask memory for a look-up's slot, later for its record.
    void fetch_slot(std::uint32_t hash) const { index_.fetch_slot(hash); }
    // Returns the number that find will most likely return, or 0.
    std::uint32_t fetch_record(std::uint32_t hash) const {
        const std::uint32_t number = index_.guess(hash);
        fetch_ahead(&contexts_[number]);
        fetch_ahead(&contexts_[number].by_unit.group);
        return number;
    }
    // Makes room for a quarter more, so that no change of a person at work waits while the index grows.
    void make_room_for_changes() { index_.make_room(index_.size() / 4); }

    std::size_t bytes() const { return contexts_.bytes() + index_.bytes(); }

  private:
    mutable GrowingArray<Context> contexts_;
    HashIndex index_;
    std::uint32_t free_ = 0;  // linked by by_unit.next
};

}  // namespace brindle
