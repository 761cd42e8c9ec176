// Labels, and how they occur together.
#include "base/error.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

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

}  // namespace

// Defined here, where all that a corpus owns is known.
Corpus::Corpus() : statistics(std::make_unique<Statistics>(*this)) {}
Corpus::~Corpus() = default;

// Of nodes in no tree, too: the history may put them there again.
void Corpus::forget_edits() {
    for (std::uint32_t number = 1; number < undo_.size(); ++number) {
        UndoTags &tags = undo_[number];
        if (tags.undo_sem || tags.orig_sem) {
            statistics->release(tags.undo_sem);
            statistics->release(tags.orig_sem);
            tags = {};
        }
        nodes[number].set_changed(false);
    }
    unsaved_changes = 0;
    ++saves;
}

void fault_in_hashtable() {
    error("Fault in hashtable!?");
}

// ---------------------------------------------------------------- entries

LabelEntry *Statistics::find(const Label *name, LabelKind kind) const {
    return name ? const_cast<Label *>(name)->entry(kind) : no_tag_;
}

LabelEntry *Statistics::find(std::string_view name, LabelKind kind) const {
    if (name.empty() && kind == LabelKind::SEM) return no_tag_;
    const Label *label = corpus_.labels.find(name);
    return label ? find(label, kind) : nullptr;
}

LexEntry *Statistics::find_word(std::string_view word) const {
    const Label *label = corpus_.labels.find(word);
    return label ? label->word : nullptr;
}

LabelEntry *Statistics::label_entry(Label *name, LabelKind kind) {
    LabelEntry *&place = place_of(name, kind);
    if (!place) {
        place = label_entries_.make();
        place->name = name;
        place->kind = kind;
        append(table[bucket_of(name)], place);
    }
    return place;
}

LexEntry *Statistics::lex_entry(Label *word) {
    if (!word->word) {
        word->word = lex_entries_.make();
        word->word->name = word;
        append(lex_table[word->bucket], word->word);
    }
    return word->word;
}

void Statistics::drop(LabelEntry *entry) {
    unlink(table[bucket_of(entry->name)], entry);
    place_of(entry->name, entry->kind) = nullptr;
    label_entries_.release(entry);
}

template <class Entry>
void Statistics::count_one(Entry *entry, bool checked) {
    ++entry->count;
    entry->checked_count += checked;
}

void Statistics::discount(LabelEntry *entry, bool checked) {
    if (!entry) fault_in_hashtable();
    entry->checked_count -= checked;
    if (--entry->count == 0) drop(entry);
}

void Statistics::discount(LexEntry *entry, bool checked) {
    if (!entry) fault_in_hashtable();
    entry->checked_count -= checked;
    if (--entry->count > 0) return;
    unlink(lex_table[entry->name->bucket], entry);
    entry->name->word = nullptr;
    lex_entries_.release(entry);
}

void Statistics::count_tag(Label *tag, bool checked) {
    count_one(label_entry(tag, LabelKind::SEM), checked);
}

void Statistics::discount_tag(Label *tag, bool checked) {
    discount(place_of(tag, LabelKind::SEM), checked);
}

void Statistics::count_category(const Unit *unit, bool checked) {
    count_one(label_entry(unit->syn, unit->category_kind()), checked);
}

void Statistics::discount_category(const Unit *unit, bool checked) {
    discount(category_entry(unit), checked);
}

void Statistics::discount_word(const Unit *unit, bool checked) {
    if (unit->lex) discount(word_entry(unit), checked);
}

void Statistics::retain(Label *tag) {
    if (!tag) return;
    if (!tag->sem) fault_in_hashtable();
    ++tag->sem->count;
}

void Statistics::release(Label *tag) {
    if (!tag) return;
    if (!tag->sem) fault_in_hashtable();
    if (--tag->sem->count == 0) drop(tag->sem);
}

// ---------------------------------------------------------------- units

void Statistics::count(Unit *unit, bool checked) {
    count_category(unit, checked);
    count_tag(unit->sem, checked);
    if (unit->lex) count_one(lex_entry(unit->lex), checked);
    count_together(unit, checked);
}

void Statistics::count_together(Unit *unit, bool checked) {
    count_pair(unit->pair, checked);
    if (!unit->lex) return;
    if (unit->count++ == 0) {
        owner_lists().append(word_entry(unit)->units, number_of(unit));
        unit->owner = word_entry(unit)->owner;
    }
    if (checked) move_word(unit, 1);
}

void Statistics::discount_together(Unit *unit, bool checked) {
    if (unit->lex) {
        if (checked) move_word(unit, -1);
        if (--unit->count == 0) owner_lists().remove(word_entry(unit)->units, number_of(unit));
    }
    discount_pair(unit->pair, checked);
}

void Statistics::count_pair(Unit *pair, bool checked) {
    if (pair->count++ == 0) {
        owner_lists().append(category_entry(pair)->pairs, number_of(pair));
        tag_lists().append(tag_entry(pair)->pairs, number_of(pair));
        pair->owner = category_entry(pair)->owner;
    }
    if (checked) move_pair(pair, 1);
}

void Statistics::discount_pair(Unit *pair, bool checked) {
    if (checked) move_pair(pair, -1);
    if (--pair->count > 0) return;
    tag_lists().remove(tag_entry(pair)->pairs, number_of(pair));
    owner_lists().remove(category_entry(pair)->pairs, number_of(pair));
}

void Statistics::move_pair(Unit *pair, int by) {
    pair->checked_count += by;
    pair->stamp = by > 0 ? ++latest_ : --foremost_;
    RankedList &tags = category_entry(pair)->pairs, &categories = tag_entry(pair)->pairs;
    const std::uint32_t number = number_of(pair);
    if (by > 0) {
        owner_lists().raised(tags, number);
        tag_lists().raised(categories, number);
    } else {
        owner_lists().lowered(tags, number);
        tag_lists().lowered(categories, number);
    }
}

void Statistics::move_word(Unit *unit, int by) {
    unit->checked_count += by;
    unit->stamp = by > 0 ? ++latest_ : --foremost_;
    RankedList &list = word_entry(unit)->units;
    if (by > 0)
        owner_lists().raised(list, number_of(unit));
    else
        owner_lists().lowered(list, number_of(unit));
}

std::size_t Statistics::bytes() const {
    return label_entries_.bytes() + lex_entries_.bytes() + contexts.bytes() + groups.bytes() +
           path_lists_.bytes() + below_.bytes();
}

}  // namespace brindle
