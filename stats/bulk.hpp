#pragma once
// Counting a whole corpus into empty statistics, tree after tree, with the sums at the end.
//
// A node is counted at one place only, its unit, and so is its mother context. Everything else is a sum of
// these and is added up when all trees are there. So is the order: an element that rises becomes the last of
// its equals, so among equals those come first whose latest rise is the earliest, and the latest rise of a
// sum is the latest of the rises that it sums up. Each event has a number for that, its stamp.
//
// Nearly every look at a context would wait for memory. So the contexts of some hundred nodes are looked for
// at once: the slots of all, then the records of all, are asked for before the first is needed.
#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/statistics.hpp"

namespace brindle {

class BulkCounting {
  public:
    // REQUIRES: the statistics are empty, and nobody reads or changes them until `finish`.
    explicit BulkCounting(Corpus &corpus);

    // A node of that unit in the tree in hand, its daughters all counted before it.
    void count_node(std::uint32_t number, bool checked) {
        Unit &unit = statistics_.unit(number);
        ++stamp_;
        if (unit.count++ == 0) {
            units_.push_back(number);
            unit.stamp = stamp_;
            unit.by_tag.group = stamp_;  // of the first node
        }
        rise(unit.checked_count, unit.stamp, checked, std::int64_t{stamp_});
    }
    // The mother context of a node: those of a mother's daughters from the last to the first, when the mother
    // has been counted.
    void record_context(std::uint32_t unit, std::uint32_t mother, std::uint32_t dtr_nr,
                        std::uint32_t nr_of_dtrs, bool checked) {
        const auto nr = static_cast<std::int32_t>(dtr_nr), of = static_cast<std::int32_t>(nr_of_dtrs);
        const std::uint32_t hash = context_hash(unit, mother, nr, of);
        statistics_.contexts.fetch_slot(hash);
        waiting_.push_back({unit, mother, nr, of, hash, 1, checked, ++stamp_, 0});
    }
    // The contexts recorded so far are counted. Worth it for some hundred at a time.
    void flush_contexts();

    // How many wait for that.
    std::size_t waiting() const { return waiting_.size(); }

    // Adds up, and ranks every list.
    void finish();

  private:
    // Occurrences of a context: how many, of these in checked trees, and when one last came or rose.
    struct Waiting {
        std::uint32_t unit, mother;
        std::int32_t dtr_nr, nr_of_dtrs;
        std::uint32_t hash;
        std::int32_t count, checked_count;
        std::uint32_t stamp;
        std::uint32_t likely;  // the context's number, most likely; 0: it will be a new one
    };

    // The first rise of an element that has none yet, or its latest one.
    template <class Stamp>
    static void rise(std::int32_t &checked_count, Stamp &stamp, std::int32_t by, Stamp at) {
        if (by == 0) return;
        stamp = checked_count == 0 ? at : std::max(stamp, at);
        checked_count += by;
    }

    void fetch_labels(std::size_t place) const;
    void add_up_units();
    void add_to_pair(Unit &unit);
    void add_up_contexts();
    void rank_words();
    void rank_pairs();
    void rank_contexts();

    Corpus &corpus_;
    Statistics &statistics_;
    std::vector<Waiting> waiting_;
    std::vector<std::uint32_t> units_;  // those counted, in the order of their first nodes
    std::vector<std::uint32_t> pairs_;  // likewise
    // Likewise; until it is ranked, the list of an entry has the entry's place here, from 1, for its first.
    std::vector<LexEntry *> words_;
    std::vector<std::uint32_t> word_of_;  // of each of units_: that place; 0: it has no word
    std::uint32_t stamp_ = 0;
};

}  // namespace brindle
