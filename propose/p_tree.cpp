#include "propose/p_tree.hpp"

#include <algorithm>
#include <span>

#include "model/traversal.hpp"
#include "stats/links.hpp"

namespace brindle {
namespace {

class CandidateFinder {
  public:
    explicit CandidateFinder(PTree &tree) : tree_(tree) {}

    // Daughters follow their mothers, so going backwards completes every daughter before its mother.
    void fill_in_p_tree() {
        for (std::size_t i = tree_.nodes.size(); i-- > 0;) {
            PTreeNode &p = tree_.nodes[i];
            p.entries = static_cast<std::uint32_t>(tree_.entries.size());
            if (p.node->dtrs) {
                tree_.daughters(static_cast<std::uint32_t>(i), dtrs_);
                combine_daughters(p);
            }
            if (tree_.entries.size() == p.entries) add_own_candidates(p);
            p.nr_of_entries = static_cast<std::uint32_t>(tree_.entries.size()) - p.entries;
        }
    }

  private:
    // What is known about one tag of the mother while its daughters are gone through.
    struct MotherTag {
        Label *sem;
        double prob = 1.0;       // the product over the daughters so far
        double best = 0.0;       // the highest contribution of the present daughter
        std::uint32_t fits = 0;  // how many daughters with candidates fit, of those so far
    };

    void add_own_candidates(const PTreeNode &p) {
        if (p.node->dtrs)
            add_category_candidates_over_daughters(p);
        else if (p.node->lex)
            add_word_candidates(p);
        else
            for (LabelLink *l = p.syn_entry->links.first(); l && l->checked_count > 0; l = l->next)
                add_category_candidate(p, l);
    }

    void add_word_candidates(const PTreeNode &p) {
        const LexEntry *word = word_entry(p.node);
        for (LexLink *l = word->links.first(); l && l->checked_count > 0; l = l->next)
            if (l->syn == p.syn_entry)
                tree_.entries.push_back({nullptr, l, share(l->checked_count, word->checked_count)});
    }

    void add_category_candidate(const PTreeNode &p, LabelLink *l) {
        tree_.entries.push_back({l, nullptr, share(l->checked_count, p.syn_entry->checked_count)});
    }

    // The category's tags that occur with this number of daughters: over some daughter's category at its
    // place.
    void add_category_candidates_over_daughters(const PTreeNode &p) {
        slots_.clear();
        for (std::size_t d = 0; d < dtrs_.size(); ++d) {
            const TagCounts *tags = tags_above(tree_.nodes[dtrs_[d]].syn_entry, path(p, d));
            if (!tags) continue;
            for (const auto &tag : *tags) slots_.add(tag.first);
        }
        if (slots_.size() == 0) return;
        for (LabelLink *l = p.syn_entry->links.first(); l && l->checked_count > 0; l = l->next)
            if (slots_.find(l->name) != TagSlots::none) add_category_candidate(p, l);
    }

    // The combinations: for each tag of the mother over which every daughter with candidates has one that
    // fits, the product of the daughters' highest contributions.
    void combine_daughters(const PTreeNode &p) {
        std::size_t d = 0;
        while (d < dtrs_.size() && tree_.nodes[dtrs_[d]].nr_of_entries == 0) ++d;
        if (d == dtrs_.size()) return;
        mother_tags_.clear();
        slots_.clear();
        collect_mother_tags(p, d);
        std::uint32_t fitting = 0;
        for (; d < dtrs_.size() && !mother_tags_.empty(); ++d) {
            if (tree_.nodes[dtrs_[d]].nr_of_entries == 0) continue;
            take_daughter(p, d, fitting++);
        }
        for (const MotherTag &tag : mother_tags_)
            if (tag.fits == fitting)
                if (LabelLink *link =
                        search_link(p.syn_entry, search(tag.sem, LabelKind::SEM, MustExist::yes)))
                    tree_.entries.push_back({link, nullptr, tag.prob, true});
    }

    // The mother's tags in the order in which the enumeration meets them: the contexts of the candidates of
    // its first daughter with candidates.
    void collect_mother_tags(const PTreeNode &p, std::size_t d) {
        for (const PEntry &e : entries_of(tree_.nodes[dtrs_[d]]))
            for (const auto &tag : e.parents().tags_of(path(p, d), room_).tags)
                if (slots_.add(tag.sem) == mother_tags_.size()) mother_tags_.push_back({tag.sem});
    }

    // Multiplies what the daughter contributes at best into the mother's tags; those that it does not fit, or
    // an earlier one did not, fall back in their number of fitting daughters.
    void take_daughter(const PTreeNode &p, std::size_t d, std::uint32_t fitting) {
        for (const PEntry &e : entries_of(tree_.nodes[dtrs_[d]])) {
            const PathTags &path_tags = e.parents().tags_of(path(p, d), room_);
            for (const auto &tag : path_tags.tags) {
                const std::uint32_t slot = slots_.find(tag.sem);
                if (slot == TagSlots::none || mother_tags_[slot].fits < fitting) continue;
                MotherTag &mother = mother_tags_[slot];
                const double value = contribution(e.prob, share(tag.checked_count, path_tags.total));
                mother.best = mother.fits == fitting ? value : std::max(mother.best, value);
                mother.fits = fitting + 1;
            }
        }
        for (MotherTag &mother : mother_tags_)
            if (mother.fits == fitting + 1) mother.prob = mother.best * mother.prob;
    }

    std::span<const PEntry> entries_of(const PTreeNode &p) const {
        return {tree_.entries.data() + p.entries, p.nr_of_entries};
    }
    Path path(const PTreeNode &p, std::size_t d) const {
        return {p.node->syn, static_cast<std::int32_t>(d) + 1, p.node->nr_of_dtrs};
    }

    PTree &tree_;
    std::vector<std::uint32_t> dtrs_;
    std::vector<MotherTag> mother_tags_;
    TagSlots slots_;
    PathTags room_;
};

PTree make_skeleton(Node *root) {
    PTree tree;
    std::vector<std::uint32_t> open;  // the places of the nodes on the way from the root to the present one
    for (Node *n = root; n; n = next_in_document(n, root)) {
        const auto place = static_cast<std::uint32_t>(tree.nodes.size());
        tree.nodes.push_back({n, category_entry(n)});
        while (!open.empty() && tree.nodes[open.back()].node != n->mother) {
            if (tree.nodes[open.back()].node->sister == n) tree.nodes[open.back()].sister = place;
            open.pop_back();
        }
        open.push_back(place);
    }
    return tree;
}

}  // namespace

void PTree::daughters(std::uint32_t place, std::vector<std::uint32_t> &places) const {
    places.clear();
    if (!nodes[place].node->dtrs) return;
    for (std::uint32_t d = place + 1; d != PTreeNode::none; d = nodes[d].sister) places.push_back(d);
}

PTree make_p_tree(Node *root) {
    PTree tree = make_skeleton(root);
    CandidateFinder(tree).fill_in_p_tree();
    return tree;
}

std::uint32_t get_most_probable_root(const PTree &tree, const PTreeNode &node) {
    std::uint32_t best = PTreeNode::none;
    for (std::uint32_t e = node.entries; e < node.entries + node.nr_of_entries; ++e)
        if (best == PTreeNode::none || tree.entries[e].prob > tree.entries[best].prob) best = e;
    return best;
}

}  // namespace brindle
