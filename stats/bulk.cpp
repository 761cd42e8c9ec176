#include "stats/bulk.hpp"

#include <array>

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/contexts.hpp"
#include "stats/pools.hpp"
#include "stats/tables.hpp"

namespace brindle {
namespace {

// How many nodes are worked on at once: what they look at comes from memory meanwhile.
constexpr std::size_t nodes_at_once = 64;
// How far ahead of its turn an element of a sum is fetched.
constexpr std::size_t sums_ahead = 16;

// Applies the work to chunks of the nodes.
template <class Work>
void in_chunks(std::span<Node *const> nodes, Work &&work) {
    for (std::size_t from = 0; from < nodes.size(); from += nodes_at_once)
        work(nodes.subspan(from, std::min(nodes_at_once, nodes.size() - from)));
}

// Applies the work to each element, when what `fetch` names has been asked for a while before.
template <class Element, class Fetch, class Work>
void for_each_fetched(const std::vector<Element> &elements, Fetch &&fetch, Work &&work) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (i + sums_ahead < elements.size()) __builtin_prefetch(fetch(elements[i + sums_ahead]));
        work(elements[i]);
    }
}

template <class Entry>
void add_counts(Entry *entry, const LabelLink *link) {
    entry->count += link->count;
    entry->checked_count += link->checked_count;
}

}  // namespace

// A node's entries, and the hash of its link in the list of its word or else its category.
struct BulkStoring::Seeker {
    LabelEntry *category;
    LabelEntry *tag;
    LexEntry *word;
    std::uint32_t hash;

    explicit Seeker(const Node *node)
        : category(label_entry(node->syn, category_kind(node))),
          tag(label_entry(node->sem, LabelKind::SEM)),
          word(node->lex ? lex_entry(node->lex) : nullptr) {
        hash = word ? word->links.hash({category, tag}) : category->links.hash(tag);
    }
    Seeker() = default;

    void prefetch() const { word ? word->links.prefetch(hash) : category->links.prefetch(hash); }
    void prefetch_element() const {
        word ? word->links.prefetch_element(hash) : category->links.prefetch_element(hash);
    }
};

void BulkStoring::store_tree(Node *root, std::span<Node *const> nodes) {
    in_order_.clear();
    do_with(root, [this](Node *node) { in_order_.push_back(node); });
    in_chunks(nodes, [this](std::span<Node *const> some) { link(some); });
    in_chunks(in_order_, [this](std::span<Node *const> some) { record(some); });
}

void BulkStoring::link(std::span<Node *const> nodes) {
    for (const Node *node : nodes)
        if (node->lex) __builtin_prefetch(node->lex->word);
    std::array<Seeker, nodes_at_once> seekers;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        seekers[i] = Seeker(nodes[i]);
        seekers[i].prefetch();
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) seekers[i].prefetch_element();
    for (std::size_t i = 0; i < nodes.size(); ++i) count(nodes[i], seekers[i]);
}

void BulkStoring::count(Node *node, const Seeker &s) {
    LexLink *lexlink = s.word ? s.word->links.find({s.category, s.tag}, s.hash) : nullptr;
    LabelLink *link = lexlink  ? lexlink->link
                      : s.word ? s.category->links.find(s.tag)
                               : s.category->links.find(s.tag, s.hash);
    if (!link) pairs_.push_back(link = new_pair(s.category, s.tag));
    node->link = link;
    if (!s.word) return s.category->links.count_one_more(link, TREE_CHECKED);
    if (!lexlink) {
        lexlink = s.word->links.add({s.category, s.tag}, lex_links);
        lexlink->link = link;
        lexlinks_.push_back(lexlink);
    }
    node->lexlink = lexlink;
    s.word->links.count_one_more(lexlink, TREE_CHECKED);
    ++s.word->count;
    s.word->checked_count += TREE_CHECKED;
}

void BulkStoring::record(std::span<Node *const> nodes) {
    struct Place {
        Node *node;
        Parents *parents;
        Context context;
        std::uint32_t hash;
    };
    std::array<Place, nodes_at_once> places;
    std::size_t n = 0;
    for (Node *node : nodes) {
        if (!node->mother) continue;
        Place &place = places[n++];
        place = {node, node->lexlink ? &node->lexlink->parents : &node->link->parents, context_of(node), 0};
        place.hash = place.parents->hash(place.context);
        place.parents->prefetch(place.hash);
    }
    for (std::size_t i = 0; i < n; ++i) places[i].parents->prefetch_element(places[i].hash);
    for (std::size_t i = 0; i < n; ++i) {
        const Place &place = places[i];
        ParentRecord *record = place.parents->find(place.context, place.hash);
        if (!record) record = new_context(place.node, place.context);
        place.parents->count_one_more(record, TREE_CHECKED);
    }
}

ParentRecord *BulkStoring::new_context(Node *node, const Context &context) {
    if (!node->lexlink) return node->link->parents.add(context, parent_records);
    ParentRecord *of_word = node->lexlink->parents.add(context, parent_records);
    ParentRecord *of_category = node->link->parents.find(context);
    if (!of_category) of_category = node->link->parents.add(context, parent_records);
    contexts_.push_back({of_word, of_category});
    return of_word;
}

BulkStoring::~BulkStoring() {
    for_each_fetched(
        contexts_, [](const ContextSum &sum) { return sum.of_category; },
        [](const ContextSum &sum) { sum.of_category->add_counts(*sum.of_word); });
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
}

}  // namespace brindle
