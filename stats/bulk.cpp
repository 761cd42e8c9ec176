#include "stats/bulk.hpp"

#include "model/fetch_ahead.hpp"
#include "model/traversal.hpp"
#include "stats/contexts.hpp"
#include "stats/pools.hpp"
#include "stats/tables.hpp"

namespace brindle {
namespace {

// How far ahead of its turn an element of a sum is fetched.
constexpr std::size_t sums_ahead = 16;

// Applies the work to each element, when what `fetch` names has been asked for a while before.
template <class Element, class Fetch, class Work>
void for_each_fetched(const std::vector<Element> &elements, Fetch &&fetch, Work &&work) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (i + sums_ahead < elements.size()) fetch_ahead(fetch(elements[i + sums_ahead]));
        work(elements[i]);
    }
}

template <class Entry>
void add_counts(Entry *entry, const LabelLink *link) {
    entry->count += link->count;
    entry->checked_count += link->checked_count;
}

}  // namespace

ReadTree &BulkStoring::room() {
    Tree &tree = trees_[youngest_];
    tree.root = nullptr;
    tree.labels.clear();
    tree.nodes.clear();
    return tree;
}

void BulkStoring::store() {
    advance();
    youngest_ = (youngest_ + 1) % trees_.size();
    room();
}

// Every tree goes one stage further, the oldest, which is done then, first.
void BulkStoring::advance() {
    using Stage = void (BulkStoring::*)(Tree &);
    static constexpr std::array<Stage, nr_of_stages> stages = {
        &BulkStoring::fetch_labels, &BulkStoring::name,  &BulkStoring::seek,
        &BulkStoring::fetch_links,  &BulkStoring::count, &BulkStoring::fetch_contexts,
        &BulkStoring::record};
    for (std::size_t age = nr_of_stages; age-- > 0;) {
        Tree &tree = trees_[(youngest_ + trees_.size() - age) % trees_.size()];
        if (tree.root) (this->*stages[age])(tree);
    }
}

void BulkStoring::fetch_labels(Tree &tree) {
    prefetch(tree.labels);
}

void BulkStoring::name(Tree &tree) {
    intern(tree.labels);
    for (const Node *node : tree.nodes)
        if (node->lex) fetch_ahead(node->lex->word);
}

void BulkStoring::seek(Tree &tree) {
    tree.seekers.clear();
    for (const Node *node : tree.nodes) {
        LabelEntry *category = label_entry(node->syn, category_kind(node));
        LabelEntry *tag = label_entry(node->sem, LabelKind::SEM);
        LexEntry *word = node->lex ? lex_entry(node->lex) : nullptr;
        const std::uint32_t hash = word ? word->links.hash({category, tag}) : category->links.hash(tag);
        word ? word->links.prefetch(hash) : category->links.prefetch(hash);
        tree.seekers.push_back({category, tag, word, hash});
    }
}

void BulkStoring::fetch_links(Tree &tree) {
    for (const Seeker &s : tree.seekers)
        s.word ? s.word->links.prefetch_element(s.hash) : s.category->links.prefetch_element(s.hash);
}

// Counts the nodes at their links, and looks for their contexts there.
void BulkStoring::count(Tree &tree) {
    for (std::size_t i = 0; i < tree.nodes.size(); ++i) count(tree.nodes[i], tree.seekers[i], tree.checked);
    tree.places.clear();
    do_with(tree.root, [&](Node *node) {
        if (!node->mother) return;
        Parents *parents = node->lexlink ? &node->lexlink->parents : &node->link->parents;
        const Context context = context_of(node);
        const std::uint32_t hash = parents->hash(context);
        parents->prefetch(hash);
        tree.places.push_back({node, parents, context, hash});
    });
}

void BulkStoring::count(Node *node, const Seeker &s, bool checked) {
    LexLink *lexlink = s.word ? s.word->links.find({s.category, s.tag}, s.hash) : nullptr;
    LabelLink *link = lexlink  ? lexlink->link
                      : s.word ? s.category->links.find(s.tag)
                               : s.category->links.find(s.tag, s.hash);
    if (!link) pairs_.push_back(link = new_pair(s.category, s.tag));
    node->link = link;
    if (!s.word) return s.category->links.count_one_more(link, checked);
    if (!lexlink) {
        lexlink = s.word->links.add({s.category, s.tag}, lex_links);
        lexlink->link = link;
        lexlinks_.push_back(lexlink);
    }
    node->lexlink = lexlink;
    s.word->links.count_one_more(lexlink, checked);
    ++s.word->count;
    s.word->checked_count += checked;
}

void BulkStoring::fetch_contexts(Tree &tree) {
    for (const Place &place : tree.places) place.parents->prefetch_element(place.hash);
}

void BulkStoring::record(Tree &tree) {
    for (const Place &place : tree.places) {
        ParentRecord *record = place.parents->find(place.context, place.hash);
        if (!record) {
            record = place.parents->add(place.context, parent_records);
            if (place.node->lexlink) contexts_.push_back({record, place.node->link});
        }
        place.parents->count_one_more(record, tree.checked);
    }
    tree.root = nullptr;
}

// Four stages again, each some elements ahead of the next.
void BulkStoring::add_up_contexts() {
    const std::size_t n = contexts_.size();
    const auto parents_of = [this](std::size_t i) -> Parents & { return contexts_[i].link->parents; };
    std::array<std::uint32_t, 4 * sums_ahead> hashes;
    const auto hash_of = [&](std::size_t i) -> std::uint32_t & { return hashes[i % hashes.size()]; };
    for (std::size_t i = 0; i < n + 3 * sums_ahead; ++i) {
        if (i < n) {
            fetch_ahead(contexts_[i].record);
            fetch_ahead(contexts_[i].link);
        }
        if (const std::size_t second = i - sums_ahead; second < n) {
            hash_of(second) = parents_of(second).hash(contexts_[second].record->key());
            parents_of(second).prefetch(hash_of(second));
        }
        if (const std::size_t third = i - 2 * sums_ahead; third < n)
            parents_of(third).prefetch_element(hash_of(third));
        if (const std::size_t last = i - 3 * sums_ahead; last < n) {
            const ParentRecord &of_word = *contexts_[last].record;
            ParentRecord *record = parents_of(last).find(of_word.key(), hash_of(last));
            if (!record) record = parents_of(last).add(of_word.key(), parent_records);
            record->add_counts(of_word);
        }
    }
}

BulkStoring::~BulkStoring() {
    room();
    for (std::size_t i = 0; i < nr_of_stages; ++i) store();
    add_up_contexts();
    for_each_fetched(
        lexlinks_, [](const LexLink *lexlink) { return lexlink->link; },
        [](const LexLink *lexlink) { lexlink->link->add_counts(*lexlink); });
    for_each_fetched(
        pairs_, [](const LabelLink *link) { return link->label; },
        [](LabelLink *link) {
            link->twin->add_counts(*link);
            add_counts(link->label, link);
            add_counts(link->twin->label, link);
        });
    RankedList<ParentRecord>::make_room_for_changes();
    LexLinks::make_room_for_changes();
    LabelLinks::make_room_for_changes();
}

}  // namespace brindle
