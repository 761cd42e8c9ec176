#include "stats/links.hpp"

#include "model/forest.hpp"
#include "model/pool.hpp"

namespace brindle {
namespace {

Pool<LabelLink> label_links;
Pool<LexLink> lex_links;
Pool<ParentRecord> parent_records;

// The two places that record a node's mother context: its category's link to its tag and, for a terminal, its
// word's link to both.
struct Places {
    LabelEntry *category;
    LabelLink *link;
    LexLink *lexlink;  // null: the node has no word
};

Places places_of(const Node *node) {
    LabelEntry *syn = category_entry(node);
    LabelEntry *sem = tag_entry(node);
    const Places places{syn, search_link(syn, sem),
                        node->lex ? search_lexlink(word_entry(node), syn, sem) : nullptr};
    if (!places.link || (node->lex && !places.lexlink)) fault_in_hashtable();
    return places;
}

void withdraw(Parents &parents, const Context &context) {
    ParentRecord *record = parents.find(context);
    if (!record) fault_in_hashtable();
    parents.count_one_less(record, TREE_CHECKED, parent_records);
}

void release_all(Parents &parents) {
    parents.drop_index();
    for (ParentRecord *next, *p = parents.first(); p; p = next) {
        next = p->next;
        parent_records.release(p);
    }
}

// Counts a checked node of the category more or less in the context, once anybody has asked for these counts.
void count_context(LabelEntry *category, const Context &context, int change) {
    if (!category->contexts) return;
    const auto path = category->contexts->try_emplace(context.path()).first;
    TagCounts &tags = path.value();
    const auto [tag, is_new] = tags.try_emplace(context.sem, change);
    if (!is_new && (tag.value() += change) == 0) tags.erase(tag);
    if (tags.empty()) category->contexts->erase(path);
}

// One more or one less checked occurrence, by TREE_CHECKED.
template <class List, class Element>
void adjust(List &list, Element *element) {
    if (!element) fault_in_hashtable();
    if (TREE_CHECKED)
        list.raise(element);
    else
        list.lower(element);
}

template <class Entry, class Link>
void clear_all(Entry *entry, Pool<Link> &pool) {
    for (Link *next, *l = entry->links.first(); l; l = next) {
        next = l->next;
        release_all(l->parents);
        pool.release(l);
    }
    entry->links.drop_index();
}

void drop_contexts(LabelEntry *entry) {
    delete entry->contexts;
    entry->contexts = nullptr;
}
void drop_contexts(LexEntry *) {}

template <class Table>
void drop_indexes(Table &entries) {
    for (auto &bucket : entries)
        for (auto *e = bucket.first; e; e = e->next) {
            for (auto *l = e->links.first(); l; l = l->next) l->parents.drop_index();
            e->links.drop_index();
            drop_contexts(e);
        }
}

}  // namespace

void store(Label *syn, Label *sem, Label *lex, Node *node) {
    LabelEntry *c = storelabel(syn, lex ? LabelKind::TERM : LabelKind::NONTERM);
    node->syn = syn;
    LabelEntry *t = storelabel(sem, LabelKind::SEM);
    node->sem = sem;
    synsemlink(c, t);
    synsemlink(t, c);
    if (!lex) return;
    lexlink(storelex(lex), c, t);
    node->lex = lex;
}

void synsemlink(LabelEntry *a, LabelEntry *b) {
    a->links.count_one_more(b, TREE_CHECKED, label_links);
}

void lexlink(LexEntry *word, LabelEntry *syn, LabelEntry *sem) {
    word->links.count_one_more({syn, sem}, TREE_CHECKED, lex_links);
}

Context context_of(const Node *node) {
    return {search(node->mother->syn, LabelKind::NONTERM, MustExist::yes), tag_entry(node->mother),
            dtr_nr(node), nr_of_sisters(node)};
}

void parent(Node *node) {
    if (!node->mother) return;
    const Places places = places_of(node);
    const Context context = context_of(node);
    if (places.lexlink) places.lexlink->parents.count_one_more(context, TREE_CHECKED, parent_records);
    places.link->parents.count_one_more(context, TREE_CHECKED, parent_records);
    if (TREE_CHECKED) count_context(places.category, context, 1);
}

void delete_parent(Node *node) {
    if (!node->mother) return;
    const Places places = places_of(node);
    const Context context = context_of(node);
    if (places.lexlink) withdraw(places.lexlink->parents, context);
    withdraw(places.link->parents, context);
    if (TREE_CHECKED) count_context(places.category, context, -1);
}

LabelLink *search_link(const LabelEntry *a, LabelEntry *b) {
    return a->links.find(b);
}

LexLink *search_lexlink(const LexEntry *word, LabelEntry *syn, LabelEntry *sem) {
    return word->links.find({syn, sem});
}

ParentRecord *search_parent(const LabelLink *link, const Context &context) {
    return link->parents.find(context);
}

ParentRecord *search_lexparent(const LexLink *link, const Context &context) {
    return link->parents.find(context);
}

const TagCounts *tags_above(LabelEntry *category, const Path &path) {
    if (!category->contexts) {
        category->contexts = new CategoryContexts;
        for (const LabelLink *l = category->links.first(); l; l = l->next)
            for (const ParentRecord *r = l->parents.first(); r && r->checked_count > 0; r = r->next)
                (*category->contexts)[r->key().path()][r->sem] += r->checked_count;
    }
    const auto found = category->contexts->find(path);
    return found == category->contexts->end() ? nullptr : &found->second;
}

void delete_link(LabelEntry *a, LabelEntry *b) {
    LabelLink *link = search_link(a, b);
    if (!link) fault_in_hashtable();
    if (link->count == 1) release_all(link->parents);
    a->links.count_one_less(link, TREE_CHECKED, label_links);
}

void delete_lexlink(LexEntry *word, LabelEntry *syn, LabelEntry *sem) {
    LexLink *link = search_lexlink(word, syn, sem);
    if (!link) fault_in_hashtable();
    if (link->count == 1) release_all(link->parents);
    word->links.count_one_less(link, TREE_CHECKED, lex_links);
}

void remove_links(Node *node) {
    LabelEntry *syn = category_entry(node);
    LabelEntry *sem = tag_entry(node);
    if (node->lex) delete_lexlink(word_entry(node), syn, sem);
    delete_link(sem, syn);
    delete_link(syn, sem);
}

void adjust_checked_amount(Node *node) {
    LabelEntry *t = tag_entry(node);
    LabelEntry *c = category_entry(node);
    const int change = TREE_CHECKED ? 1 : -1;
    LexLink *wordlink = nullptr;
    if (node->lex) {
        LexEntry *w = word_entry(node);
        w->checked_count += change;
        adjust(w->links, wordlink = search_lexlink(w, c, t));
    }
    adjust(t->links, search_link(t, c));
    LabelLink *link = search_link(c, t);
    adjust(c->links, link);
    if (node->mother) {
        const Context context = context_of(node);
        if (wordlink) adjust(wordlink->parents, search_lexparent(wordlink, context));
        adjust(link->parents, search_parent(link, context));
        count_context(c, context, change);
    }
    t->checked_count += change;
    c->checked_count += change;
}

void clear_links(LabelEntry *entry) {
    clear_all(entry, label_links);
    drop_contexts(entry);
}

void clear_links(LexEntry *entry) {
    clear_all(entry, lex_links);
}

void reset_links() {
    drop_indexes(table);
    drop_indexes(lex_table);
    label_links.clear();
    lex_links.clear();
    parent_records.clear();
}

std::size_t link_bytes() {
    return label_links.bytes() + lex_links.bytes() + parent_records.bytes();
}

}  // namespace brindle
