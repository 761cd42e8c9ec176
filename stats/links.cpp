#include "stats/links.hpp"

#include <vector>

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/pools.hpp"

namespace brindle {

Pool<LabelLink> label_links;
Pool<LexLink> lex_links;

namespace {

// The lists that a link of a category and a tag and its twin stand in.
LabelLinks &list_of(LabelLink *link) {
    return link->twin->label->links;
}

void count_one_more(LabelLink *link) {
    list_of(link).count_one_more(link, TREE_CHECKED);
    list_of(link->twin).count_one_more(link->twin, TREE_CHECKED);
}

void delete_lexlink(LexEntry *word, LexLink *link) {
    if (link->count == 1) clear_contexts(link->parents);
    word->links.count_one_less(link, TREE_CHECKED, lex_links);
}

// One more or one less checked occurrence, by TREE_CHECKED.
template <class Entry, class Link>
void adjust(Entry *entry, Link *link) {
    entry->checked_count += TREE_CHECKED ? 1 : -1;
    if (TREE_CHECKED)
        entry->links.raise(link);
    else
        entry->links.lower(link);
}

void adjust_labels(Node *node) {
    if (!node->link) fault_in_hashtable();
    if (node->lexlink) adjust(word_entry(node), node->lexlink);
    adjust(tag_entry(node), node->link->twin);
    adjust(category_entry(node), node->link);
}

template <class Entry, class Link>
void clear_all(Entry *entry, Pool<Link> &pool) {
    entry->links.for_each([](Link *link) { clear_contexts(link->parents); });
    entry->links.clear(pool);
}

}  // namespace

void store(Label *syn, Label *sem, Label *lex, Node *node) {
    LabelEntry *category = storelabel(syn, lex ? LabelKind::TERM : LabelKind::NONTERM);
    LabelEntry *tag = storelabel(sem, LabelKind::SEM);
    node->syn = syn;
    node->sem = sem;
    node->lex = lex;
    link_labels(node, category, tag, lex ? storelex(lex) : nullptr);
}

void store_tree(Node *root, std::span<Node *const> nodes) {
    for (Node *node : nodes) store(node->syn, node->sem, node->lex, node);
    record_tree(root);
}

void link_labels(Node *node, LabelEntry *category, LabelEntry *tag, LexEntry *word) {
    LexLink *lexlink = word ? search_lexlink(word, category, tag) : nullptr;
    if (lexlink) {  // the way through the word is the shortest
        node->link = lexlink->link;
        count_one_more(node->link);
    } else {
        node->link = synsemlink(category, tag);
        if (!word) return;
        lexlink = word->links.add({category, tag}, lex_links);
        lexlink->link = node->link;
    }
    word->links.count_one_more(lexlink, TREE_CHECKED);
    node->lexlink = lexlink;
}

LabelLink *new_pair(LabelEntry *category, LabelEntry *tag) {
    LabelLink *link = category->links.add(tag, label_links);
    link->twin = tag->links.add(category, label_links);
    link->twin->twin = link;
    link->name = tag->name;
    link->twin->name = category->name;
    return link;
}

LabelLink *synsemlink(LabelEntry *category, LabelEntry *tag) {
    LabelLink *link = search_link(category, tag);
    if (!link) link = new_pair(category, tag);
    count_one_more(link);
    return link;
}

void delete_link(LabelLink *link) {
    LabelLink *twin = link->twin;
    LabelLinks &list = list_of(link), &list_of_twin = list_of(twin);
    if (link->count == 1) clear_contexts(link->parents);
    list_of_twin.count_one_less(twin, TREE_CHECKED, label_links);
    list.count_one_less(link, TREE_CHECKED, label_links);
}

LabelLink *search_link(LabelEntry *a, LabelEntry *b) {
    if (a->links.length() <= b->links.length()) return a->links.find(b);
    const LabelLink *twin = b->links.find(a);
    return twin ? twin->twin : nullptr;
}

LexLink *search_lexlink(const LexEntry *word, LabelEntry *syn, LabelEntry *sem) {
    return word->links.find({syn, sem});
}

void remove_links(Node *node) {
    if (!node->link) fault_in_hashtable();
    if (node->lexlink) delete_lexlink(word_entry(node), node->lexlink);
    delete_link(node->link);
    node->lexlink = nullptr;
    node->link = nullptr;
}

void adjust_checked_amounts(Node *root) {
    std::vector<Node *> nodes;
    do_with(root, [&](Node *node) { nodes.push_back(node); });
    for (Node *node : nodes) adjust_labels(node);
    change_contexts(nodes, ContextChange::adjust_checked);
}

void clear_links(LabelEntry *entry) {
    clear_all(entry, label_links);
    clear_category_contexts(entry);
}

void clear_links(LexEntry *entry) {
    clear_all(entry, lex_links);
}

void reset_links() {
    reset_contexts();
    LabelLinks::forget_all();
    LexLinks::forget_all();
    label_links.clear();
    lex_links.clear();
}

std::size_t link_bytes() {
    return label_links.bytes() + lex_links.bytes() + LabelLinks::bytes() + LexLinks::bytes() +
           context_bytes();
}

}  // namespace brindle
