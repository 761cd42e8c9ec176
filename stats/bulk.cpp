#include "stats/bulk.hpp"

#include <algorithm>
#include <utility>

namespace brindle {
namespace {

// Numbers grouped by keys: group k is numbers[start[k]] .. numbers[start[k + 1]], in the order of the
// numbers.
struct Groups {
    std::vector<std::uint32_t> start;
    std::vector<std::uint32_t> numbers;

    std::span<std::uint32_t> group(std::uint32_t key) {
        return std::span(numbers).subspan(start[key], start[key + 1] - start[key]);
    }
};

// Groups the numbers of 1 .. end - 1 for which there is a key (not 0) below `keys`.
template <class KeyOf>
Groups group_by(std::uint32_t end, std::uint32_t keys, KeyOf &&key_of) {
    Groups groups;
    groups.start.assign(keys + 1, 0);
    for (std::uint32_t n = 1; n < end; ++n)
        if (const std::uint32_t key = key_of(n)) ++groups.start[key];
    std::uint32_t sum = 0;
    for (std::uint32_t &start : groups.start) start = std::exchange(sum, sum + start);
    groups.numbers.resize(sum);
    std::vector<std::uint32_t> at(groups.start);
    for (std::uint32_t n = 1; n < end; ++n)
        if (const std::uint32_t key = key_of(n)) groups.numbers[at[key]++] = n;
    return groups;
}

// The first rise of an element that has none yet, or its latest one.
template <class Stamp>
void rise(std::int32_t &checked_count, Stamp &stamp, std::int32_t by, Stamp at) {
    if (by == 0) return;
    stamp = checked_count == 0 ? at : std::max(stamp, at);
    checked_count += by;
}

constexpr std::size_t sums_ahead = 16;  // how far ahead of its turn a context of a sum is asked for

}  // namespace

BulkCounting::BulkCounting(Corpus &corpus) : corpus_(corpus), statistics_(*corpus.statistics) {}

void BulkCounting::count_node(std::uint32_t number, bool checked) {
    Unit &unit = statistics_.unit(number);
    ++stamp_;
    if (unit.count++ == 0) {
        units_.push_back(number);
        unit.stamp = stamp_;
        unit.by_tag.group = stamp_;  // of the first node
    }
    rise(unit.checked_count, unit.stamp, checked, std::int64_t{stamp_});
}

void BulkCounting::flush_contexts() {
    Contexts &contexts = statistics_.contexts;
    for (const Waiting &w : waiting_) contexts.fetch_record(w.hash);
    for (const Waiting &w : waiting_) {
        ++stamp_;
        std::uint32_t number = contexts.find(w.hash, w.unit, w.mother, w.dtr_nr, w.nr_of_dtrs);
        if (!number) {
            number = contexts.add(w.hash, w.unit, w.mother, w.dtr_nr, w.nr_of_dtrs);
            contexts[number].by_unit.group = stamp_;
        }
        Context &c = contexts[number];
        ++c.count;
        rise(c.checked_count, c.by_unit.group, w.checked, stamp_);
    }
    waiting_.clear();
}

void BulkCounting::finish() {
    flush_contexts();
    add_up_units();
    add_up_contexts();
    rank_units();
    rank_contexts();
    statistics_.continue_stamps(stamp_);
    statistics_.contexts.make_room_for_changes();
}

// ---------------------------------------------------------------- sums

void BulkCounting::add_up_units() {
    for (const std::uint32_t number : units_) {
        Unit &unit = statistics_.unit(number);
        LabelEntry *category = statistics_.label_entry(unit.syn, unit.category_kind());
        LabelEntry *tag = statistics_.label_entry(unit.sem, LabelKind::SEM);
        for (LabelEntry *entry : {category, tag}) {
            entry->count += unit.count;
            entry->checked_count += unit.checked_count;
        }
        if (unit.lex) {
            LexEntry *word = statistics_.lex_entry(unit.lex);
            word->count += unit.count;
            word->checked_count += unit.checked_count;
            add_to_pair(unit);
        } else {
            pairs_.push_back(number);
        }
    }
}

void BulkCounting::add_to_pair(Unit &unit) {
    Unit &pair = *unit.pair;
    if (pair.count == 0) {
        pairs_.push_back(statistics_.number_of(&pair));
        pair.stamp = unit.by_tag.group;
    }
    pair.count += unit.count;
    rise(pair.checked_count, pair.stamp, unit.checked_count, unit.stamp);
}

// The contexts of words, once more for their pairs; three stages, each some contexts ahead of the next.
void BulkCounting::add_up_contexts() {
    Contexts &contexts = statistics_.contexts;
    std::vector<std::uint32_t> of_words;
    for (std::uint32_t n = 1; n < contexts.end(); ++n)
        if (statistics_.unit(contexts[n].unit).lex) of_words.push_back(n);
    std::vector<std::uint32_t> hashes(of_words.size());
    const std::size_t size = of_words.size();
    for (std::size_t i = 0; i < size + 2 * sums_ahead; ++i) {
        if (i < size) {
            const Context &c = contexts[of_words[i]];
            const std::uint32_t pair = statistics_.number_of(statistics_.unit(c.unit).pair);
            hashes[i] = context_hash(pair, c.mother, c.dtr_nr, c.nr_of_dtrs);
            contexts.fetch_slot(hashes[i]);
        }
        if (const std::size_t second = i - sums_ahead; second < size) contexts.fetch_record(hashes[second]);
        if (const std::size_t last = i - 2 * sums_ahead; last < size) add_to_pair(of_words[last]);
    }
}

void BulkCounting::add_to_pair(std::uint32_t number) {
    Contexts &contexts = statistics_.contexts;
    const Context c = contexts[number];
    const std::uint32_t pair = statistics_.number_of(statistics_.unit(c.unit).pair);
    const std::uint32_t hash = context_hash(pair, c.mother, c.dtr_nr, c.nr_of_dtrs);
    std::uint32_t sum = contexts.find(hash, pair, c.mother, c.dtr_nr, c.nr_of_dtrs);
    if (!sum) {
        sum = contexts.add(hash, pair, c.mother, c.dtr_nr, c.nr_of_dtrs);
        contexts[sum].by_unit.group = c.by_unit.group;
    }
    Context &to = contexts[sum];
    to.count += c.count;
    rise(to.checked_count, to.by_unit.group, c.checked_count, c.by_unit.group);
}

// ---------------------------------------------------------------- order

void BulkCounting::rank_units() {
    const auto by_rank = [&](std::uint32_t a, std::uint32_t b) {
        const Unit &x = statistics_.unit(a), &y = statistics_.unit(b);
        return x.checked_count != y.checked_count ? x.checked_count > y.checked_count : x.stamp < y.stamp;
    };
    std::sort(units_.begin(), units_.end(), by_rank);
    std::sort(pairs_.begin(), pairs_.end(), by_rank);
    auto owners = statistics_.owner_lists();
    auto tags = statistics_.tag_lists();
    for (const std::uint32_t n : units_) {
        const Unit &unit = statistics_.unit(n);
        if (unit.lex) owners.append(statistics_.word_entry(&unit)->units, n);
    }
    for (const std::uint32_t n : pairs_) {
        const Unit &pair = statistics_.unit(n);
        owners.append(statistics_.category_entry(&pair)->pairs, n);
        tags.append(statistics_.tag_entry(&pair)->pairs, n);
    }
}

void BulkCounting::rank_contexts() {
    Contexts &contexts = statistics_.contexts;
    Groups lists =
        group_by(contexts.end(), corpus_.units.end(), [&](std::uint32_t n) { return contexts[n].unit; });
    auto ranking = statistics_.context_lists();
    for (std::uint32_t u = 1; u < corpus_.units.end(); ++u) {
        const std::span<std::uint32_t> list = lists.group(u);
        std::sort(list.begin(), list.end(), [&](std::uint32_t a, std::uint32_t b) {
            const Context &x = contexts[a], &y = contexts[b];
            return x.checked_count != y.checked_count ? x.checked_count > y.checked_count
                                                      : x.by_unit.group < y.by_unit.group;
        });
        ranking.fill(statistics_.unit(u).contexts, list);
    }
}

}  // namespace brindle
