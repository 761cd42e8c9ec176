#include "stats/verify.hpp"

#include <fmt/format.h>
#include <tsl/robin_map.h>

#include "model/path.hpp"
#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

// What a number is the count of. Everything is named by its texts' records, so that nothing here relies on
// units or tables.
enum class What { entry, pair, pair_of_tag, context, word, word_unit, word_context };

struct Key {
    What what;
    LabelKind kind;  // of the entry, or of the category that the key names
    const Label *syn = nullptr;
    const Label *sem = nullptr;
    const Label *lex = nullptr;
    const Label *mother_syn = nullptr;
    const Label *mother_sem = nullptr;
    std::int32_t dtr_nr = 0;
    std::int32_t nr_of_dtrs = 0;
    bool operator==(const Key &) const = default;
};

struct KeyHash {
    std::size_t operator()(const Key &key) const {
        const auto number = [](const Label *label) { return reinterpret_cast<std::uintptr_t>(label); };
        const auto kinds = static_cast<std::uint64_t>(key.what) << 8 | static_cast<std::uint64_t>(key.kind);
        const auto place =
            static_cast<std::uint64_t>(key.dtr_nr) << 32 | static_cast<std::uint32_t>(key.nr_of_dtrs);
        return mix_hash(number(key.syn), number(key.sem), kinds) ^
               31 * mix_hash(number(key.lex), number(key.mother_syn), place + 7 * number(key.mother_sem));
    }
};

struct Counts {
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    bool met = false;  // the statistics have it
};

Key entry_key(const Label *name, LabelKind kind) {
    Key key{What::entry, kind};
    (kind == LabelKind::SEM ? key.sem : key.syn) = name;
    return key;
}

std::string name_of(const Label *label) {
    return label ? fmt::format("\"{}\"", label->view()) : "none";
}

std::string text_of(const Key &key) {
    static constexpr const char *subjects[] = {
        "entry", "pair", "pair in the tag's list", "context", "word", "unit of word", "word context"};
    return fmt::format("{}: kind {}, category {}, tag {}, word {}, below {} {} at {} of {}",
                       subjects[static_cast<int>(key.what)], static_cast<int>(key.kind), name_of(key.syn),
                       name_of(key.sem), name_of(key.lex), name_of(key.mother_syn), name_of(key.mother_sem),
                       key.dtr_nr, key.nr_of_dtrs);
}

class Verifier {
  public:
    explicit Verifier(Corpus &corpus) : corpus_(corpus), statistics_(*corpus.statistics) {}

    std::string first_difference() {
        count_trees();
        for (std::uint32_t bucket = 0; bucket < nr_of_buckets && difference_.empty(); ++bucket) {
            check_chain(statistics_.table[bucket], bucket);
            check_chain(statistics_.lex_table[bucket], bucket);
        }
        for (auto it = expected_.begin(); it != expected_.end() && difference_.empty(); ++it)
            if (!it->second.met) report("missing: {}", text_of(it->first));
        return difference_;
    }

  private:
    template <class... Values>
    void report(fmt::format_string<Values...> format, Values &&...values) {
        if (difference_.empty()) difference_ = fmt::format(format, std::forward<Values>(values)...);
    }

    // The trees.
    void count_trees();
    void count_node(const Node *node, bool checked);
    void check_node(const Node *node, int tree);
    void expect(const Key &key, bool checked, bool counted = true) {
        Counts &counts = expected_[key];
        counts.count += counted;
        counts.checked_count += checked;
    }
    void expect_reference(const Label *tag) {
        if (tag) expect(entry_key(tag, LabelKind::SEM), false, true);
    }

    // The statistics.
    template <class Entry>
    void check_chain(const Bucket<Entry> &bucket, std::uint32_t number);
    void check_entry(const LabelEntry *entry);
    void check_tags_of(const LabelEntry *category);
    void check_categories_of(const LabelEntry *tag);
    void check_entry(const LexEntry *word);
    void check_contexts(const Unit *unit, Key key);
    void check_list(const char *fault, const Key &owner) {
        if (fault) report("{}: {}", text_of(owner), fault);
    }
    void check_rank(const Unit *unit, const Key &key) {
        const Unit *const next = statistics_.next_of_owner(unit);
        if (next && next->checked_count > 0 && !Statistics::ranks_before(*unit, *next))
            report("its stamp is not before the next one's: {}", text_of(key));
    }
    void compare(const Key &key, std::int32_t count, std::int32_t checked_count);

    Corpus &corpus_;
    Statistics &statistics_;
    tsl::robin_map<Key, Counts, KeyHash> expected_;
    std::string difference_;
};

Key pair_key(const Unit *unit) {
    return {What::pair, unit->category_kind(), unit->syn, unit->sem};
}

void Verifier::count_trees() {
    for (int t = 0; t < corpus_.amount() && difference_.empty(); ++t) {
        const Tree &tree = corpus_.tree(t);
        if (!tree.root || tree.root->mother() || tree.root->sister() || tree.root->position())
            return report("tree {}: bad root", t + 1);
        for_each_in_subtree(tree.root, [&](const Node *node) {
            check_node(node, t);
            count_node(node, tree.checked);
        });
    }
}

void Verifier::check_node(const Node *node, int tree) {
    if (node->tree() != tree) report("tree {}, node {}: of another tree", tree + 1, path_of(node));
    if (node->lex() && node->dtrs())
        report("tree {}, node {}: a word and daughters", tree + 1, path_of(node));
    if (corpus_.units.find(node->syn(), node->sem(), node->lex()) != node->unit())
        report("tree {}, node {}: its unit is not the interned one", tree + 1, path_of(node));
    std::int32_t position = 0;
    for (const Node *daughter = node->dtrs(); daughter; daughter = daughter->sister())
        if (daughter->mother() != node || daughter->position() != ++position)
            report("tree {}, node {}: daughter {} is linked wrongly", tree + 1, path_of(node), position);
    if (position != node->nr_of_dtrs())
        report("tree {}, node {}: {} daughters, noted are {}", tree + 1, path_of(node), position,
               node->nr_of_dtrs());
}

void Verifier::count_node(const Node *node, bool checked) {
    const Unit *const unit = node->unit();
    expect(entry_key(unit->syn, unit->category_kind()), checked);
    expect(entry_key(unit->sem, LabelKind::SEM), checked);
    expect_reference(corpus_.undo_of(node).undo_sem);
    expect_reference(corpus_.undo_of(node).orig_sem);
    Key key = pair_key(unit);
    expect(key, checked);
    key.what = What::pair_of_tag;
    expect(key, checked);
    if (unit->lex) {
        expect({What::word, LabelKind::TERM, nullptr, nullptr, unit->lex}, checked);
        key.what = What::word_unit;
        key.lex = unit->lex;
        expect(key, checked);
    }
    if (!node->mother()) return;
    key.mother_syn = node->mother()->syn();
    key.mother_sem = node->mother()->sem();
    key.dtr_nr = node->position();
    key.nr_of_dtrs = node->mother()->nr_of_dtrs();
    key.what = What::word_context;
    if (unit->lex) expect(key, checked);
    key.lex = nullptr;
    key.what = What::context;
    expect(key, checked);
}

void Verifier::compare(const Key &key, std::int32_t count, std::int32_t checked_count) {
    const auto found = expected_.find(key);
    if (found == expected_.end()) return report("not in the trees: {}", text_of(key));
    Counts &counts = found.value();
    if (counts.met) report("twice in its list: {}", text_of(key));
    counts.met = true;
    if (counts.count != count || counts.checked_count != checked_count)
        report("{}: {} ({} checked), the trees have {} ({})", text_of(key), count, checked_count,
               counts.count, counts.checked_count);
}

// The labels' references to the entries are checked on the way: each entry is the one that its label names.
template <class Entry>
void Verifier::check_chain(const Bucket<Entry> &bucket, std::uint32_t number) {
    const Entry *before = nullptr;
    for (const Entry *e = bucket.first; e && difference_.empty(); before = e, e = e->next) {
        if (e->prev != before) report("bucket {}: a chain's links back are broken", number);
        if ((e->name ? hash(e->name->view()) : 0) != number) report("bucket {}: wrong place", number);
        check_entry(e);
    }
    if (bucket.last != before) report("bucket {}: its end is not its last entry", number);
}

void Verifier::check_entry(const LabelEntry *entry) {
    const Key own = entry_key(entry->name, entry->kind);
    compare(own, entry->count, entry->checked_count);
    if (statistics_.find(entry->name, entry->kind) != entry)
        report("its label does not name it: {}", text_of(own));
    if (entry->kind == LabelKind::SEM)
        check_categories_of(entry);
    else
        check_tags_of(entry);
}

void Verifier::check_tags_of(const LabelEntry *category) {
    check_list(statistics_.owner_lists().fault(category->pairs), entry_key(category->name, category->kind));
    for (const Unit *u = statistics_.first_of(category->pairs); u; u = statistics_.next_of_owner(u)) {
        Key key = pair_key(u);
        if (u->pair != u || u->lex || statistics_.category_entry(u) != category)
            report("in the list of another category: {}", text_of(key));
        compare(key, u->count, u->checked_count);
        check_rank(u, key);
        key.what = What::context;
        check_contexts(u, key);
    }
    check_list(statistics_.fault_below(category->pairs, category->owner),
               entry_key(category->name, category->kind));
}

void Verifier::check_categories_of(const LabelEntry *tag) {
    const Key own = entry_key(tag->name, tag->kind);
    check_list(statistics_.tag_lists().fault(tag->pairs), own);
    std::int64_t count = 0, checked_count = 0;
    for (const Unit *u = statistics_.first_of(tag->pairs); u; u = statistics_.next_of_tag(u)) {
        Key key = pair_key(u);
        key.what = What::pair_of_tag;
        if (u->pair != u || statistics_.tag_entry(u) != tag) report("in another's list: {}", text_of(key));
        compare(key, u->count, u->checked_count);
        count += u->count;
        checked_count += u->checked_count;
    }
    if (count > tag->count || checked_count != tag->checked_count)
        report("{}: its list sums up to {} ({} checked)", text_of(own), count, checked_count);
}

void Verifier::check_entry(const LexEntry *word) {
    const Key own{What::word, LabelKind::TERM, nullptr, nullptr, word->name};
    compare(own, word->count, word->checked_count);
    if (word->name->word != word) report("its label does not name it: {}", text_of(own));
    check_list(statistics_.owner_lists().fault(word->units), own);
    check_list(statistics_.fault_below(word->units, word->owner), own);
    for (const Unit *u = statistics_.first_of(word->units); u; u = statistics_.next_of_owner(u)) {
        Key key = pair_key(u);
        key.what = What::word_unit;
        key.lex = word->name;
        if (u->lex != word->name) report("in the list of another word: {}", text_of(key));
        compare(key, u->count, u->checked_count);
        check_rank(u, key);
        if (corpus_.units.find_pair(u->syn, LabelKind::TERM, u->sem) != u->pair)
            report("names another pair: {}", text_of(key));
        key.what = What::word_context;
        check_contexts(u, key);
    }
}

void Verifier::check_contexts(const Unit *unit, Key key) {
    check_list(statistics_.context_lists().fault(unit->contexts), key);
    check_list(statistics_.fault_in_paths(unit), key);
    const std::uint32_t own = statistics_.number_of(unit);
    const Contexts &contexts = statistics_.contexts;
    for (std::uint32_t n = unit->contexts.first; n; n = contexts[n].by_unit.next) {
        const Context &c = contexts[n];
        const Unit &mother = statistics_.unit(c.mother);
        key.mother_syn = mother.syn;
        key.mother_sem = mother.sem;
        key.dtr_nr = c.dtr_nr;
        key.nr_of_dtrs = c.nr_of_dtrs;
        if (c.unit != own) report("in the list of another unit: {}", text_of(key));
        if (contexts.find(own, c.mother, c.dtr_nr, c.nr_of_dtrs) != n)
            report("the index misses: {}", text_of(key));
        compare(key, c.count, c.checked_count);
    }
}

}  // namespace

std::string verify(Corpus &corpus) {
    return Verifier(corpus).first_difference();
}

}  // namespace brindle
