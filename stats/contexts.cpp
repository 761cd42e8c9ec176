#include "stats/contexts.hpp"

#include <array>
#include <unordered_map>
#include <vector>

#include "model/forest.hpp"
#include "model/traversal.hpp"
#include "stats/pools.hpp"
#include "stats/tables.hpp"

namespace brindle {

Pool<ParentRecord> parent_records;

namespace {

using ContextList = RankedList<ParentRecord>;

// Those that entries refer to; no pool can hold them.
std::unordered_map<const LabelEntry *, CategoryContexts> all_category_contexts;

// A change of one list.
struct Change {
    Parents *parents;
    Context context;
    std::uint32_t hash;
};

// The changes of a few nodes, with what they will look at on its way from memory.
class Changes {
  public:
    static constexpr std::size_t most_nodes = 32;

    void prepare(std::span<Node *const> nodes) {
        for (const Node *node : nodes) {
            fetch_ahead(node->link);
            fetch_ahead(node->lexlink);
        }
        for (const Node *node : nodes) {
            if (!node->mother) continue;
            if (!node->link) fault_in_hashtable();
            const Context context = context_of(node);
            if (node->lexlink) add(node->lexlink->parents, context);
            add(node->link->parents, context);
        }
        for (const Change &change : *this) change.parents->prefetch_element(change.hash);
    }

    const Change *begin() const { return changes_.data(); }
    const Change *end() const { return changes_.data() + size_; }

  private:
    void add(Parents &parents, const Context &context) {
        const std::uint32_t hash = parents.hash(context);
        parents.prefetch(hash);
        changes_[size_++] = {&parents, context, hash};
    }

    std::array<Change, 2 * most_nodes> changes_;
    std::size_t size_ = 0;
};

void carry_out(const Change &c, ContextChange change) {
    ParentRecord *record = c.parents->find(c.context, c.hash);
    if (change == ContextChange::record) {
        if (!record) record = c.parents->add(c.context, parent_records);
        c.parents->count_one_more(record, TREE_CHECKED);
    } else if (!record) {
        fault_in_hashtable();
    } else if (change == ContextChange::withdraw) {
        c.parents->count_one_less(record, TREE_CHECKED, parent_records);
    } else if (TREE_CHECKED) {
        c.parents->raise(record);
    } else {
        c.parents->lower(record);
    }
}

// Keeps the counts of the category's checked contexts, once anybody has asked for them.
void count_for_category(const Node *node, ContextChange change) {
    LabelEntry *category = category_entry(node);
    if (!category->contexts || !node->mother) return;
    const bool adjust = change == ContextChange::adjust_checked;
    if (!adjust && !TREE_CHECKED) return;
    const int by = change == ContextChange::withdraw || (adjust && !TREE_CHECKED) ? -1 : 1;
    const Context context = context_of(node);
    const auto path = category->contexts->try_emplace(context.path()).first;
    TagCounts &tags = path.value();
    const auto [tag, is_new] = tags.try_emplace(context.sem, by);
    if (!is_new && (tag.value() += by) == 0) tags.erase(tag);
    if (tags.empty()) category->contexts->erase(path);
}

}  // namespace

void change_contexts(std::span<Node *const> nodes, ContextChange change) {
    for (std::size_t from = 0; from < nodes.size(); from += Changes::most_nodes) {
        const auto some = nodes.subspan(from, std::min(Changes::most_nodes, nodes.size() - from));
        Changes changes;
        changes.prepare(some);
        for (const Change &c : changes) carry_out(c, change);
        for (const Node *node : some) count_for_category(node, change);
    }
}

void parent(Node *node) {
    change_contexts({&node, 1}, ContextChange::record);
}

void delete_parent(Node *node) {
    change_contexts({&node, 1}, ContextChange::withdraw);
}

void record_tree(Node *root) {
    std::vector<Node *> nodes;
    do_with(root, [&](Node *node) { nodes.push_back(node); });
    change_contexts(nodes, ContextChange::record);
}

Context context_of(const Node *node) {
    return {node->mother->syn, node->mother->sem, dtr_nr(node), nr_of_sisters(node)};
}

ParentRecord *search_parent(const LabelLink *link, const Context &context) {
    return link->parents.find(context);
}

ParentRecord *search_lexparent(const LexLink *link, const Context &context) {
    return link->parents.find(context);
}

const TagCounts *tags_above(LabelEntry *category, const Path &path) {
    if (!category->contexts) {
        category->contexts = &all_category_contexts[category];
        category->links.for_each([category](const LabelLink *link) {
            link->parents.for_each([category](const ParentRecord *r) {
                if (r->checked_count > 0) (*category->contexts)[r->key().path()][r->sem] += r->checked_count;
            });
        });
    }
    const auto found = category->contexts->find(path);
    return found == category->contexts->end() ? nullptr : &found->second;
}

void clear_contexts(Parents &parents) {
    parents.clear(parent_records);
}

void clear_category_contexts(LabelEntry *category) {
    if (category->contexts) all_category_contexts.erase(category);
    category->contexts = nullptr;
}

void reset_contexts() {
    all_category_contexts.clear();
    Parents::forget_all_paths();
    ContextList::forget_all();
    parent_records.clear();
}

std::size_t context_bytes() {
    return parent_records.bytes() + ContextList::bytes();
}

}  // namespace brindle
