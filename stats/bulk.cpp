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

// A place in a ranked list: less means further to the front.
struct Rank {
    std::uint64_t rank;
    std::uint32_t number;

    Rank(std::uint32_t element, std::int32_t checked_count, std::int64_t stamp)
        : rank(std::uint64_t{~static_cast<std::uint32_t>(checked_count)} << 32 |
               static_cast<std::uint32_t>(stamp)),
          number(element) {}
    bool operator<(const Rank &other) const { return rank < other.rank; }
};

// How far ahead of their turn records are asked for where one follows the other.
constexpr std::uint32_t records_ahead = 16;
// So many contexts are added up at once.
constexpr std::uint32_t contexts_at_once = 256;

// Ranks every group for itself: `fetch` asks memory for an element, `rank_of` tells its rank, and `append`
// gets the elements of each group from the front to the end.
template <class Fetch, class RankOf, class Append>
void rank_groups(const Groups &groups, Fetch &&fetch, RankOf &&rank_of, Append &&append) {
    const std::vector<std::uint32_t> &numbers = groups.numbers;
    std::vector<Rank> list;
    for (std::uint32_t key = 1; key + 1 < groups.start.size(); ++key) {
        list.clear();
        for (std::uint32_t i = groups.start[key]; i < groups.start[key + 1]; ++i) {
            if (i + records_ahead < numbers.size()) fetch(numbers[i + records_ahead]);
            list.push_back(rank_of(numbers[i]));
        }
        if (list.size() > 1) std::sort(list.begin(), list.end());
        for (const Rank &element : list) append(key, element.number);
    }
}

}  // namespace

BulkCounting::BulkCounting(Corpus &corpus) : corpus_(corpus), statistics_(*corpus.statistics) {}

void BulkCounting::flush_contexts() {
    Contexts &contexts = statistics_.contexts;
    for (Waiting &w : waiting_) w.likely = contexts.fetch_record(w.hash);
    for (const Waiting &w : waiting_) {
        std::uint32_t number = w.likely;
        if (!number || !contexts[number].is(w.unit, w.mother, w.dtr_nr, w.nr_of_dtrs))
            number = contexts.find(w.hash, w.unit, w.mother, w.dtr_nr, w.nr_of_dtrs);
        if (!number) {
            number = contexts.add(w.hash, w.unit, w.mother, w.dtr_nr, w.nr_of_dtrs);
            contexts[number].by_unit.group = w.stamp;
        }
        Context &c = contexts[number];
        c.count += w.count;
        rise(c.checked_count, c.by_unit.group, w.checked_count, w.stamp);
    }
    waiting_.clear();
}

void BulkCounting::finish() {
    flush_contexts();
    add_up_units();
    add_up_contexts();
    rank_words();
    rank_pairs();
    rank_contexts();
    statistics_.continue_stamps(stamp_);
    statistics_.contexts.make_room_for_changes();
}

// ---------------------------------------------------------------- sums

void BulkCounting::fetch_labels(std::size_t place) const {
    if (place >= units_.size()) return;
    const Unit &unit = statistics_.unit(units_[place]);
    fetch_ahead(unit.sem);
    fetch_ahead(unit.lex);
}

void BulkCounting::add_up_units() {
    for (std::size_t i = 0; i < units_.size(); ++i) {
        fetch_labels(i + records_ahead);
        Unit &unit = statistics_.unit(units_[i]);
        LabelEntry *category = statistics_.label_entry(unit.syn, unit.category_kind());
        LabelEntry *tag = statistics_.label_entry(unit.sem, LabelKind::SEM);
        for (LabelEntry *entry : {category, tag}) {
            entry->count += unit.count;
            entry->checked_count += unit.checked_count;
        }
        if (!unit.lex) {
            pairs_.push_back(units_[i]);
            word_of_.push_back(0);
            continue;
        }
        LexEntry *word = statistics_.lex_entry(unit.lex);
        if (word->count == 0) {
            words_.push_back(word);
            word->units.first = static_cast<std::uint32_t>(words_.size());
        }
        word_of_.push_back(word->units.first);
        word->count += unit.count;
        word->checked_count += unit.checked_count;
        add_to_pair(unit);
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

// The contexts of words, once more for their pairs.
void BulkCounting::add_up_contexts() {
    Contexts &contexts = statistics_.contexts;
    const std::uint32_t end = contexts.end();
    for (std::uint32_t from = 1; from < end; from += contexts_at_once) {
        const std::uint32_t to = std::min(from + contexts_at_once, end);
        for (std::uint32_t n = from; n < to; ++n) fetch_ahead(&statistics_.unit(contexts[n].unit));
        for (std::uint32_t n = from; n < to; ++n) {
            const Context &c = contexts[n];
            const Unit &unit = statistics_.unit(c.unit);
            if (!unit.lex) continue;
            const std::uint32_t pair = statistics_.number_of(unit.pair);
            const std::uint32_t hash = context_hash(pair, c.mother, c.dtr_nr, c.nr_of_dtrs);
            contexts.fetch_slot(hash);
            waiting_.push_back(
                {pair, c.mother, c.dtr_nr, c.nr_of_dtrs, hash, c.count, c.checked_count, c.by_unit.group, 0});
        }
        flush_contexts();
    }
}

// ---------------------------------------------------------------- order

// Elements are places of units, from 1.
void BulkCounting::rank_words() {
    const auto unit = [&](std::uint32_t place) -> const Unit & {
        return statistics_.unit(units_[place - 1]);
    };
    const Groups groups =
        group_by(static_cast<std::uint32_t>(units_.size()) + 1, static_cast<std::uint32_t>(words_.size()) + 1,
                 [&](std::uint32_t place) { return word_of_[place - 1]; });
    for (LexEntry *word : words_) word->units = {};
    auto ranking = statistics_.owner_lists();
    rank_groups(
        groups, [&](std::uint32_t place) { fetch_ahead(&unit(place).stamp); },
        [&](std::uint32_t place) {
            return Rank(units_[place - 1], unit(place).checked_count, unit(place).stamp);
        },
        [&](std::uint32_t word, std::uint32_t n) { ranking.append(words_[word - 1]->units, n); });
}

void BulkCounting::rank_pairs() {
    std::vector<Rank> ranks;
    for (const std::uint32_t n : pairs_)
        ranks.push_back({n, statistics_.unit(n).checked_count, statistics_.unit(n).stamp});
    std::sort(ranks.begin(), ranks.end());
    auto owners = statistics_.owner_lists();
    auto tags = statistics_.tag_lists();
    for (const Rank &rank : ranks) {
        const Unit &pair = statistics_.unit(rank.number);
        owners.append(statistics_.category_entry(&pair)->pairs, rank.number);
        tags.append(statistics_.tag_entry(&pair)->pairs, rank.number);
    }
}

void BulkCounting::rank_contexts() {
    Contexts &contexts = statistics_.contexts;
    const Groups groups =
        group_by(contexts.end(), corpus_.units.end(), [&](std::uint32_t n) { return contexts[n].unit; });
    auto ranking = statistics_.context_lists();
    rank_groups(
        groups, [&](std::uint32_t n) { fetch_ahead(&contexts[n].count); },
        [&](std::uint32_t n) { return Rank(n, contexts[n].checked_count, contexts[n].by_unit.group); },
        [&](std::uint32_t unit, std::uint32_t n) { ranking.append(statistics_.unit(unit).contexts, n); });
}

}  // namespace brindle
