#include "propose/literal_proposal.hpp"

#include <algorithm>

#include "stats/statistics.hpp"

namespace brindle::test {
namespace {

struct Candidate {
    const Unit *unit = nullptr;  // of a word, or over all words
    std::vector<const Candidate *> dtr_entries;
    double prob = 0;
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
    Literal(const Corpus &corpus, LiteralProposal &result, std::size_t limit)
        : units_(corpus.units), statistics_(*corpus.statistics), result_(result), limit_(limit) {}

    PNode build(Node *node) {
        PNode p{node, {}, {}};
        for (Node *d = node->dtrs(); d; d = d->sister()) p.dtrs.push_back(build(d));
        if (!p.dtrs.empty()) combine(p);
        if (p.entries.empty()) own_candidates(p);
        return p;
    }

    void write(const PNode &p, const Candidate *e) {
        result_.tags[p.node] = e ? std::string(text_of(e->unit->sem)) : "NO_MATCH";
        if (e && !e->dtr_entries.empty()) {
            for (std::size_t d = 0; d < p.dtrs.size(); ++d) write(p.dtrs[d], e->dtr_entries[d]);
        } else if (!p.dtrs.empty()) {
            result_.selected[p.node] = result_.has_break = true;
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
    // The mother contexts of a unit at a place under mothers of the node's category, unchecked ones too.
    std::vector<Context> contexts_under(const PNode &mother, std::size_t d, const Unit *unit) const {
        std::vector<Context> found;
        for (auto n = unit->contexts.first; n; n = statistics_.contexts[n].by_unit.next)
            if (const Context &c = statistics_.contexts[n]; units_[c.mother].syn == mother.node->syn() &&
                                                            c.dtr_nr == int(d) + 1 &&
                                                            c.nr_of_dtrs == int(mother.dtrs.size()))
                found.push_back(c);
        return found;
    }

    void own_candidates(PNode &p) {
        const Node *node = p.node;
        if (node->lex()) {
            const LexEntry *word = node->lex()->word;
            for (const Unit *u = statistics_.first_of(word->units); u; u = statistics_.next_of_owner(u))
                if (u->syn == node->syn() && u->checked_count >= 1)
                    p.entries.push_back({u, {}, double(u->checked_count) / double(word->checked_count)});
            return;
        }
        const LabelEntry *category = node->syn()->nonterm;
        for (const Unit *u = statistics_.first_of(category->pairs); u; u = statistics_.next_of_owner(u))
            if (u->checked_count >= 1 && occurs_with_number(p, u->sem))
                p.entries.push_back({u, {}, double(u->checked_count) / double(category->checked_count)});
    }

    bool occurs_with_number(const PNode &p, const Label *sem) const {
        for (std::size_t d = 0; d < p.dtrs.size(); ++d) {
            const Node *daughter = p.dtrs[d].node;
            const LabelEntry *category = daughter->lex() ? daughter->syn()->term : daughter->syn()->nonterm;
            for (const Unit *u = statistics_.first_of(category->pairs); u; u = statistics_.next_of_owner(u))
                for (const Context &c : contexts_under(p, d, u))
                    if (units_[c.mother].sem == sem && c.checked_count >= 1) return true;
        }
        return p.dtrs.empty();
    }

    void combine(PNode &p) {
        std::size_t f = 0;
        while (f < p.dtrs.size() && p.dtrs[f].entries.empty()) ++f;
        if (f == p.dtrs.size()) return;
        for (const Candidate &e : p.dtrs[f].entries)
            for (const Context &c : contexts_under(p, f, e.unit)) {
                if (c.checked_count >= 1) enumerate(p, &units_[c.mother]);
                if (result_.too_many) return;
            }
    }

    Column fit(const PNode &p, std::size_t d, const Unit *mother) const {
        Column column;
        for (const Candidate &q : p.dtrs[d].entries) {
            int total = 0, count = 0;
            for (const Context &c : contexts_under(p, d, q.unit)) {
                total += c.checked_count;
                if (units_[c.mother].sem == mother->sem) count = c.checked_count;
            }
            if (count < 1) continue;
            column.candidates.push_back(&q);
            column.parent_count.push_back(count);
            column.path_total.push_back(total);
        }
        return column;
    }

    void enumerate(PNode &p, const Unit *mother) {
        std::vector<Column> table;
        for (std::size_t d = 0; d < p.dtrs.size(); ++d) {
            table.push_back(fit(p, d, mother));
            if (table.back().candidates.empty() && !p.dtrs[d].entries.empty()) return;
        }
        std::size_t d;
        do {
            Candidate made{mother, {}, 1.0};
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

    const Units &units_;
    Statistics &statistics_;
    LiteralProposal &result_;
    std::size_t limit_;
};

}  // namespace

LiteralProposal propose_literally(const Corpus &corpus, int tree, std::size_t limit) {
    LiteralProposal result;
    Literal literal(corpus, result, limit);
    const PNode p = literal.build(corpus.tree(tree).root);
    if (!result.too_many) literal.write(p, Literal::best(p));
    return result;
}

}  // namespace brindle::test
