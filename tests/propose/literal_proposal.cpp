#include "propose/literal_proposal.hpp"

#include <algorithm>

#include "model/traversal.hpp"
#include "stats/links.hpp"

namespace brindle::test {
namespace {

struct Candidate {
    LabelLink *link = nullptr;
    LexLink *lexlink = nullptr;
    std::vector<const Candidate *> dtr_entries;
    double prob = 0;

    LabelEntry *sem() const { return lexlink ? lexlink->sem : link->label; }
    const ParentRecord *records() const { return lexlink ? lexlink->parents.first() : link->parents.first(); }
};

struct PNode {
    Node *node;
    std::vector<PNode> dtrs;
    std::vector<Candidate> entries;
};

struct Column {
    std::vector<const Candidate *> candidates;
    std::vector<int> parent_count, path_total;
    std::size_t counter = 0;
};

class Literal {
  public:
    Literal(LiteralProposal &result, std::size_t limit) : result_(result), limit_(limit) {}

    PNode build(Node *node) {
        PNode p{node, {}, {}};
        for (Node *d = node->dtrs; d; d = d->sister) p.dtrs.push_back(build(d));
        if (!p.dtrs.empty()) combine(p);
        if (p.entries.empty()) own_candidates(p);
        return p;
    }

    void write(const PNode &p, const Candidate *e) {
        result_.tags[p.node] = e ? std::string(text_of(e->sem()->name)) : "NO_MATCH";
        if (e && !e->dtr_entries.empty()) {
            for (std::size_t d = 0; d < p.dtrs.size(); ++d) write(p.dtrs[d], e->dtr_entries[d]);
        } else if (!p.dtrs.empty()) {
            result_.selected[p.node] = result_.prob_break = true;
            for (const PNode &d : p.dtrs) write(d, best(d));
        }
    }

    static const Candidate *best(const PNode &p) {
        std::vector<const Candidate *> sorted;
        for (const Candidate &e : p.entries) sorted.push_back(&e);
        std::stable_sort(sorted.begin(), sorted.end(), [](auto *a, auto *b) { return a->prob > b->prob; });
        return sorted.empty() ? nullptr : sorted.front();
    }

  private:
    void own_candidates(PNode &p) {
        LabelEntry *syn = category_entry(p.node);
        if (p.dtrs.empty() && p.node->lex) {
            const LexEntry *word = word_entry(p.node);
            for (LexLink *l = word->links.first(); l; l = l->next)
                if (l->syn == syn && l->checked_count >= 1)
                    p.entries.push_back(
                        {nullptr, l, {}, double(l->checked_count) / double(word->checked_count)});
            return;
        }
        for (LabelLink *l = syn->links.first(); l; l = l->next)
            if (l->checked_count >= 1 && occurs_with_number(p, l->label))
                p.entries.push_back({l, nullptr, {}, double(l->checked_count) / double(syn->checked_count)});
    }

    static bool occurs_with_number(const PNode &p, const LabelEntry *sem) {
        const int n = int(p.dtrs.size());
        for (int i = 1; i <= n; ++i) {
            const LabelEntry *daughter = category_entry(p.dtrs[std::size_t(i) - 1].node);
            for (LabelLink *l = daughter->links.first(); l; l = l->next)
                for (const ParentRecord *r = l->parents.first(); r; r = r->next)
                    if (r->syn == p.node->syn && r->sem == sem->name && r->dtr_nr == i &&
                        r->nr_of_dtrs == n && r->checked_count >= 1)
                        return true;
        }
        return n == 0;
    }

    void combine(PNode &p) {
        std::size_t f = 0;
        while (f < p.dtrs.size() && p.dtrs[f].entries.empty()) ++f;
        if (f == p.dtrs.size()) return;
        for (const Candidate &e : p.dtrs[f].entries)
            for (const ParentRecord *r = e.records(); r; r = r->next) {
                if (r->syn != p.node->syn || r->dtr_nr != int(f) + 1 || r->nr_of_dtrs != int(p.dtrs.size()) ||
                    r->checked_count < 1)
                    continue;
                if (LabelLink *link =
                        search_link(category_entry(p.node), search(r->sem, LabelKind::SEM, MustExist::yes)))
                    enumerate(p, link);
                if (result_.too_many) return;
            }
    }

    static Column fit(const PNode &p, std::size_t d, const LabelEntry *sem) {
        Column column;
        for (const Candidate &q : p.dtrs[d].entries) {
            int total = 0, count = 0;
            for (const ParentRecord *r = q.records(); r; r = r->next) {
                if (r->syn != p.node->syn || r->dtr_nr != int(d) + 1 || r->nr_of_dtrs != int(p.dtrs.size()))
                    continue;
                total += r->checked_count;
                if (r->sem == sem->name) count = r->checked_count;
            }
            if (count < 1) continue;
            column.candidates.push_back(&q);
            column.parent_count.push_back(count);
            column.path_total.push_back(total);
        }
        return column;
    }

    void enumerate(PNode &p, LabelLink *link) {
        std::vector<Column> table;
        for (std::size_t d = 0; d < p.dtrs.size(); ++d) {
            table.push_back(fit(p, d, link->label));
            if (table.back().candidates.empty() && !p.dtrs[d].entries.empty()) return;
        }
        std::size_t d;
        do {
            Candidate made{link, nullptr, {}, 1.0};
            for (const Column &c : table) {
                const bool none = c.candidates.empty();
                made.dtr_entries.push_back(none ? nullptr : c.candidates[c.counter]);
                if (!none)
                    made.prob = (c.candidates[c.counter]->prob *
                                 (double(c.parent_count[c.counter]) / double(c.path_total[c.counter]))) *
                                made.prob;
            }
            p.entries.push_back(made);
            if (p.entries.size() > limit_) result_.too_many = true;
            if (result_.too_many) return;
            for (d = 0; d < table.size(); ++d) {
                if (++table[d].counter < table[d].candidates.size()) break;
                table[d].counter = 0;
            }
        } while (d < table.size());
    }

    LiteralProposal &result_;
    std::size_t limit_;
};

}  // namespace

LiteralProposal propose_literally(Node *root, std::size_t limit) {
    LiteralProposal result;
    Literal literal(result, limit);
    const PNode p = literal.build(root);
    if (!result.too_many) literal.write(p, Literal::best(p));
    return result;
}

}  // namespace brindle::test
