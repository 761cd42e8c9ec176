#include "stats/tables.hpp"

#include "model/error.hpp"
#include "model/forest.hpp"
#include "model/pool.hpp"
#include "stats/links.hpp"

namespace brindle {

std::array<Bucket<LabelEntry>, nr_of_buckets> table;
std::array<Bucket<LexEntry>, nr_of_buckets> lex_table;

namespace {

Pool<LabelEntry> label_entries;
Pool<LexEntry> lex_entries;
LabelEntry *no_tag = nullptr;  // the SEM entry without a name

// Where the label keeps the reference to its entry.
LabelEntry *&place_of(Label *name, LabelKind kind) {
    return name ? name->entry(kind) : no_tag;
}

std::uint32_t bucket_of(const Label *name) {
    return name ? name->bucket : 0;
}

template <class Entry>
void append(Bucket<Entry> &bucket, Entry *entry) {
    entry->prev = bucket.last;
    (bucket.last ? bucket.last->next : bucket.first) = entry;
    bucket.last = entry;
}

template <class Entry>
void unlink(Bucket<Entry> &bucket, Entry *entry) {
    (entry->prev ? entry->prev->next : bucket.first) = entry->next;
    (entry->next ? entry->next->prev : bucket.last) = entry->prev;
}

template <class Entry>
void count_one_more(Entry *entry) {
    ++entry->count;
    if (TREE_CHECKED) ++entry->checked_count;
}

void drop(LabelEntry *entry) {
    unlink(table[bucket_of(entry->name)], entry);
    place_of(entry->name, entry->kind) = nullptr;
    clear_links(entry);
    label_entries.release(entry);
}

void drop(LexEntry *entry) {
    unlink(lex_table[entry->name->bucket], entry);
    entry->name->word = nullptr;
    clear_links(entry);
    lex_entries.release(entry);
}

template <class Entry>
void count_one_less(Entry *entry) {
    if (TREE_CHECKED) --entry->checked_count;
    if (--entry->count == 0) drop(entry);
}

}  // namespace

void fault_in_hashtable() {
    error("Fault in hashtable!?");
}

LabelEntry *search(Label *name, LabelKind kind, MustExist must) {
    LabelEntry *entry = place_of(name, kind);
    if (!entry && must == MustExist::yes) fault_in_hashtable();
    return entry;
}

LabelEntry *search(std::string_view name, LabelKind kind, MustExist must) {
    if (name.empty() && kind == LabelKind::SEM) return search(nullptr, kind, must);
    if (Label *label = find_label(name)) return search(label, kind, must);
    if (must == MustExist::yes) fault_in_hashtable();
    return nullptr;
}

LexEntry *searchlex(Label *word, MustExist must) {
    if (!word->word && must == MustExist::yes) fault_in_hashtable();
    return word->word;
}

LexEntry *searchlex(std::string_view word, MustExist must) {
    if (Label *label = find_label(word)) return searchlex(label, must);
    if (must == MustExist::yes) fault_in_hashtable();
    return nullptr;
}

void tables_init() {
    reset_links();
    for (auto &bucket : table) {
        for (LabelEntry *e = bucket.first; e; e = e->next) place_of(e->name, e->kind) = nullptr;
        bucket = {};
    }
    for (auto &bucket : lex_table) {
        for (LexEntry *e = bucket.first; e; e = e->next) e->name->word = nullptr;
        bucket = {};
    }
    label_entries.clear();
    lex_entries.clear();
}

LabelEntry *label_entry(Label *name, LabelKind kind) {
    LabelEntry *&place = place_of(name, kind);
    if (!place) {
        place = label_entries.make();
        place->name = name;
        place->kind = kind;
        append(table[bucket_of(name)], place);
    }
    return place;
}

LexEntry *lex_entry(Label *word) {
    if (!word->word) {
        word->word = lex_entries.make();
        word->word->name = word;
        append(lex_table[word->bucket], word->word);
    }
    return word->word;
}

LabelEntry *storelabel(Label *name, LabelKind kind) {
    LabelEntry *entry = label_entry(name, kind);
    count_one_more(entry);
    return entry;
}

LexEntry *storelex(Label *word) {
    LexEntry *entry = lex_entry(word);
    count_one_more(entry);
    return entry;
}

void delete_old_label(Label *name, LabelKind kind) {
    count_one_less(search(name, kind, MustExist::yes));
}

void delete_lex_label(Label *word) {
    count_one_less(searchlex(word, MustExist::yes));
}

void handle_undo(Label *release, Label *retain) {
    if (release) {
        LabelEntry *entry = search(release, LabelKind::SEM, MustExist::yes);
        if (--entry->count == 0) drop(entry);
    }
    if (retain) ++search(retain, LabelKind::SEM, MustExist::yes)->count;
}

LabelEntry *category_entry(const Node *node) {
    return search(node->syn, category_kind(node), MustExist::yes);
}

LabelEntry *tag_entry(const Node *node) {
    return search(node->sem, LabelKind::SEM, MustExist::yes);
}

LexEntry *word_entry(const Node *node) {
    return searchlex(node->lex, MustExist::yes);
}

std::size_t table_bytes() {
    return label_entries.bytes() + lex_entries.bytes() + link_bytes();
}

}  // namespace brindle
