#include "stats/verify.hpp"

#include <fmt/format.h>

#include "model/forest.hpp"
#include "model/path.hpp"
#include "model/traversal.hpp"
#include "stats/links.hpp"

namespace brindle {
namespace {

// What a number is the count of. Categories, tags and words are named by their texts' records, so that
// nothing here relies on the tables or on the references that labels hold into them.
enum class What {
    entry,
    tag_link,
    category_link,
    tag_context,
    word,
    word_link,
    word_context,
    category_context
};

struct Place {
    const Label *syn = nullptr;
    const Label *sem = nullptr;
    std::int32_t dtr_nr = 0;
    std::int32_t nr_of_dtrs = 0;
    bool operator==(const Place &) const = default;
};

struct Key {
    What what;
    LabelKind kind;  // of the entry, or of the category that the key names
    const Label *syn = nullptr;
    const Label *sem = nullptr;
    const Label *lex = nullptr;
    Place place = {};
    bool operator==(const Key &) const = default;

    std::size_t hash() const {
        const auto kinds = static_cast<std::uint64_t>(what) << 8 | static_cast<std::uint64_t>(kind);
        const auto numbers =
            static_cast<std::uint64_t>(place.dtr_nr) << 32 | static_cast<std::uint32_t>(place.nr_of_dtrs);
        return mix_hash(syn, sem, kinds) ^
               (mix_hash(lex, place.syn, numbers) + 31 * mix_hash(place.sem, nullptr));
    }
};

struct Counts {
    std::int32_t count = 0;
    std::int32_t checked_count = 0;
    bool met = false;  // the tables have it
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
        "entry", "link category to tag", "link tag to category", "context",
        "word",  "link of word",         "word context",         "context of category"};
    return fmt::format("{}: kind {}, category {}, tag {}, word {}, below {} {} at {} of {}",
                       subjects[static_cast<int>(key.what)], static_cast<int>(key.kind), name_of(key.syn),
                       name_of(key.sem), name_of(key.lex), name_of(key.place.syn), name_of(key.place.sem),
                       key.place.dtr_nr, key.place.nr_of_dtrs);
}

class Verifier {
  public:
    std::string first_difference() {
        count_forest();
        for (std::uint32_t bucket = 0; bucket < nr_of_buckets && difference_.empty(); ++bucket) {
            check_chain(table[bucket], bucket);
            check_chain(lex_table[bucket], bucket);
        }
        for (auto it = expected_.begin(); it != expected_.end() && difference_.empty(); ++it)
            if (!it->second.met && it->first.what != What::category_context)
                report("missing: {}", text_of(it->first));
        return difference_;
    }

  private:
    template <class... Values>
    void report(fmt::format_string<Values...> format, Values &&...values) {
        if (difference_.empty()) difference_ = fmt::format(format, std::forward<Values>(values)...);
    }

    // The trees.
    void count_forest();
    void count_node(const Node *node, bool checked);
    void check_node(const Node *node, int tree);
    void check_links(const Node *node, int tree);
    void expect(const Key &key, bool checked, bool counted = true) {
        Counts &counts = expected_[key];
        counts.count += counted;
        counts.checked_count += checked;
    }
    void expect_reference(const Label *tag) {
        if (tag) expect(entry_key(tag, LabelKind::SEM), false);
    }

    // The tables.
    template <class Entry>
    void check_chain(const Bucket<Entry> &bucket, std::uint32_t number);
    void check_entry(const LabelEntry *entry);
    void check_entry(const LexEntry *entry);
    void check_link(const LabelEntry *entry, const LabelLink *link);
    void check_parents(const Parents &parents, Key key);
    void check_category_contexts(const LabelEntry *entry);
    template <class List>
    void check_list(const List &list, const Key &owner);
    void compare(const Key &key, std::int32_t count, std::int32_t checked_count);

    tsl::robin_map<Key, Counts, HashOf> expected_;
    std::string difference_;
};

void Verifier::count_forest() {
    if (static_cast<std::size_t>(amount) != forest.size())
        report("amount is {}, the forest has {} trees", amount, forest.size());
    for (int t = 0; t < amount && difference_.empty(); ++t) {
        const TreeEntry &tree = forest[static_cast<std::size_t>(t)];
        if (!tree.root || tree.root->mother || tree.root->sister || tree.root->position) {
            report("tree {}: bad root", t + 1);
            return;
        }
        if (tree_of(tree.root) != &tree) report("tree {}: its root is not registered as its own", t + 1);
        for_each_in_subtree(tree.root, [&](const Node *node) {
            check_node(node, t);
            count_node(node, tree.checked);
        });
    }
}

void Verifier::check_node(const Node *node, int tree) {
    if (!node->syn) report("tree {}, node {}: no category", tree + 1, path_of(node));
    if (node->lex && node->dtrs) report("tree {}, node {}: a word and daughters", tree + 1, path_of(node));
    std::int32_t position = 0;
    for (const Node *daughter = node->dtrs; daughter; daughter = daughter->sister)
        if (daughter->mother != node || daughter->position != ++position)
            report("tree {}, node {}: daughter {} is linked wrongly", tree + 1, path_of(node), position);
    if (position != node->nr_of_dtrs)
        report("tree {}, node {}: {} daughters, noted are {}", tree + 1, path_of(node), position,
               node->nr_of_dtrs);
    check_links(node, tree);
}

// The node's own references to where it is counted.
void Verifier::check_links(const Node *node, int tree) {
    const LabelLink *link = node->link;
    if (!link || link->label->name != node->sem || link->twin->label->name != node->syn ||
        link->twin->label->kind != category_kind(node))
        return report("tree {}, node {}: refers to another link", tree + 1, path_of(node));
    const LexEntry *word = node->lex ? node->lex->word : nullptr;
    const LexLink *lexlink = word ? search_lexlink(word, link->twin->label, link->label) : nullptr;
    if (lexlink != node->lexlink)
        report("tree {}, node {}: refers to another link of its word", tree + 1, path_of(node));
}

void Verifier::count_node(const Node *node, bool checked) {
    const LabelKind kind = category_kind(node);
    expect(entry_key(node->syn, kind), checked);
    expect(entry_key(node->sem, LabelKind::SEM), checked);
    expect_reference(node->undo_sem);
    expect_reference(node->orig_sem);
    Key key{What::tag_link, kind, node->syn, node->sem};
    expect(key, checked);
    key.what = What::category_link;
    expect(key, checked);
    if (node->mother) {
        key.place = {node->mother->syn, node->mother->sem, node->position, node->mother->nr_of_dtrs};
        key.what = What::tag_context;
        expect(key, checked);
        if (checked) expect({What::category_context, kind, node->syn, nullptr, nullptr, key.place}, true);
    }
    if (!node->lex) return;
    key.lex = node->lex;
    key.what = What::word_context;
    if (node->mother) expect(key, checked);
    key.place = {};
    key.what = What::word_link;
    expect(key, checked);
    expect({What::word, kind, nullptr, nullptr, node->lex}, checked);
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
    if (search(entry->name, entry->kind, MustExist::no) != entry)
        report("its label does not name it: {}", text_of(own));
    check_list(entry->links, own);
    entry->links.for_each([&](const LabelLink *link) { check_link(entry, link); });
    check_category_contexts(entry);
}

void Verifier::check_link(const LabelEntry *entry, const LabelLink *l) {
    const bool is_tag = entry->kind == LabelKind::SEM;
    Key key{is_tag ? What::category_link : What::tag_link, is_tag ? l->label->kind : entry->kind};
    key.syn = is_tag ? l->label->name : entry->name;
    key.sem = is_tag ? entry->name : l->label->name;
    compare(key, l->count, l->checked_count);
    if (l->name != l->label->name) report("its name is not its label's: {}", text_of(key));
    if (l->twin->twin != l || l->twin->label != entry) report("not linked to its twin: {}", text_of(key));
    if (is_tag && l->parents.first()) report("contexts on a tag's link: {}", text_of(key));
    key.what = What::tag_context;
    check_parents(l->parents, key);
}

void Verifier::check_entry(const LexEntry *entry) {
    const Key own{What::word, LabelKind::TERM, nullptr, nullptr, entry->name};
    compare(own, entry->count, entry->checked_count);
    if (entry->name->word != entry) report("its label does not name it: {}", text_of(own));
    check_list(entry->links, own);
    entry->links.for_each([&](const LexLink *l) {
        Key key{What::word_link, l->syn->kind, l->syn->name, l->sem->name, entry->name};
        compare(key, l->count, l->checked_count);
        if (search_link(l->syn, l->sem) != l->link) report("names another link: {}", text_of(key));
        key.what = What::word_context;
        check_parents(l->parents, key);
    });
}

void Verifier::check_parents(const Parents &parents, Key key) {
    check_list(parents, key);
    parents.for_each([&](const ParentRecord *r) {
        key.place = {r->syn, r->sem, r->dtr_nr, r->nr_of_dtrs};
        compare(key, r->count, r->checked_count);
    });
}

// These counts exist only for categories that tags_above has been asked about.
void Verifier::check_category_contexts(const LabelEntry *entry) {
    if (!entry->contexts) return;
    for (const auto &[path, tags] : *entry->contexts)
        for (const auto &[sem, count] : tags) {
            const Place place{path.syn, sem, path.dtr_nr, path.nr_of_dtrs};
            compare({What::category_context, entry->kind, entry->name, nullptr, nullptr, place}, count,
                    count);
        }
    entry->links.for_each([&](const LabelLink *l) {
        l->parents.for_each([&](const ParentRecord *r) {
            if (r->checked_count == 0) return;
            const auto path = entry->contexts->find(r->key().path());
            if (path == entry->contexts->end() || !path->second.contains(r->sem))
                report("a context is missing: {}", text_of(entry_key(entry->name, entry->kind)));
        });
    });
}

template <class List>
void Verifier::check_list(const List &list, const Key &owner) {
    if (const char *fault = list.fault()) report("{}: {}", text_of(owner), fault);
}

}  // namespace

std::string verify_tables() {
    return Verifier().first_difference();
}

}  // namespace brindle
