#include "display/offered_tags.hpp"

#include <tsl/robin_set.h>

#include "stats/statistics.hpp"

namespace brindle {

std::vector<const Label *> tags_of_category(const Corpus &corpus, const Node &node) {
    std::vector<const Label *> tags;
    Statistics &statistics = *corpus.statistics;
    const RankedList &pairs = statistics.category_entry(node.unit())->pairs;
    for (const Unit *u = statistics.first_of(pairs); u; u = statistics.next_of_owner(u))
        if (u->checked_count > 0) tags.push_back(u->sem);
    return tags;
}

std::vector<const Label *> tags_of_word(const Corpus &corpus, const Node &node) {
    std::vector<const Label *> tags;
    tsl::robin_set<const Label *> seen;
    Statistics &statistics = *corpus.statistics;
    const RankedList &units = statistics.word_entry(node.unit())->units;
    for (const Unit *u = statistics.first_of(units); u; u = statistics.next_of_owner(u))
        if (u->checked_count > 0 && seen.insert(u->sem).second) tags.push_back(u->sem);
    return tags;
}

}  // namespace brindle
