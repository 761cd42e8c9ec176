#pragma once
// What the checked trees suggest for the nodes of one tree: their candidates, and how they fit below each
// other.
//
// A mother's candidates are the combinations of its daughters' candidates that occur under it in checked
// trees; taken literally their number is the product of the daughters' numbers. But a combination's
// probability grows with that of each daughter's candidate, and what a daughter's candidate contributes
// depends only on its tag and its probability. So there is one candidate for each tag of a node: with its
// highest probability, computed by the very floating-point products of the enumeration, and with its place in
// the order in which the enumeration first meets the node's tags. Which combination it stands for is found
// later, for the chosen ones only (propose/choice.hpp).
//
// Even so a node may have as many candidates as its category has tags, and nearly all of them are too
// improbable to matter. So no set of candidates is ever made as a whole. Each node hands out its candidates
// one by one, the most probable first, when somebody asks for more, and says for any tag whether it is a
// candidate and how probable. Both questions are passed down the tree:
//   - The tags of a word or a category stand ranked in the statistics.
//   - A daughter hands out the mothers under which it fits, the one with the highest contribution first: it
//     merges the ranked contexts of its own candidates, and lets one in when its probability exceeds the best
//     contribution at hand, for a share is at most 1.
//   - A mother takes such mothers from its daughters in turn, asks the other daughters for their
//   contributions,
//     and hands a candidate out when no product of what the daughters have not yet handed out can exceed it.
//   - What a daughter contributes under a given mother is looked for among its most probable candidates, up
//   to
//     the one whose probability is not above the best contribution, or among the few units that occur there.
#include <cstdint>
#include <span>
#include <vector>

#include <tsl/robin_map.h>
#include <tsl/robin_set.h>

#include "stats/statistics.hpp"

namespace brindle {

// The best candidate for one tag.
struct Candidate {
    std::uint32_t unit;  // the number of the unit with the tag; its contexts are the candidate's
    double prob;         // the highest probability among this tag's candidates
};

// The share of a count in a total. Everybody computes it here, and what a candidate contributes: equal
// products must be equal to the bit.
inline double share(std::int32_t count, std::int32_t total) {
    return static_cast<double>(count) / static_cast<double>(total);
}
// What a candidate contributes to a combination under a mother.
inline double contribution(double prob, double share) {
    return prob * share;
}

// Where a node's candidates come from.
enum class Origin {
    word,            // the word's tags in the node's category
    category,        // all tags of the category
    over_daughters,  // those that occur over some daughter's category at its place
    combinations,    // of the daughters' candidates
};

// A node of the tree in hand. What is known of its candidates grows with the questions.
struct ProposalNode {
    static constexpr std::uint32_t none = ~std::uint32_t{0};

    Node *node = nullptr;
    std::uint32_t sister = none;  // place of the next sister
    Origin origin = Origin::category;
    std::uint32_t owner =
        0;  // for questions to ContextsBelow; 0: a word of few units, which are gone through

    std::vector<Candidate> known;  // those handed out, the most probable first
    bool is_complete = false;      // there are no more

    // Of any origin but combinations: the list that they are taken from.
    std::int32_t total = 0;       // the checked count that theirs are shares of
    std::uint32_t next_unit = 0;  // of the list, not looked at yet
    std::uint64_t patience = 0;   // over daughters: so many looks more before the rest is listed at once

    // Of combinations.
    std::uint32_t first_column = 0, nr_of_columns = 0;  // the daughters that have candidates
    std::uint32_t first_driver = 0, nr_of_drivers = 0;  // those of them that are asked for mothers
    std::uint32_t height = 0;                           // levels of combinations below
    std::vector<Candidate> met;                         // found, but not handed out: a heap
    double unmet = 1.0;                                 // no candidate that is not found is more probable
    bool all_met = false;

    // The node's column: the mothers under which its candidates fit.
    struct Cursor {
        double value;  // the contribution under the mother of the context
        double prob;   // of the candidate
        std::uint32_t context;
        std::int32_t total;
    };
    Path path = {};
    std::vector<Cursor> cursors;  // a heap
    std::uint32_t entered = 0;    // how many of `known` have got a cursor

    // The order of the enumeration, as far as it has been asked for.
    std::vector<std::uint32_t> ordered;
    std::uint32_t next_ordered = 0;   // candidate of the first column
    std::uint32_t order_context = 0;  // the next of its contexts
    bool all_ordered = false;

    // The choice: a unit's number.
    std::uint32_t choice = 0;  // 0: there is no candidate
    bool is_decided = false;
};

// A candidate that fits under a mother.
struct Fitting {
    Candidate candidate = {0, 0.0};
    double share = 0.0;  // of the mother among the candidate's mothers at its place
};

class CandidateFinder {
  public:
    explicit CandidateFinder(Corpus &corpus) : statistics_(*corpus.statistics) {}

    // Takes a tree in hand: its nodes in document order, so that a first daughter follows its mother. What
    // was known of the tree before is forgotten. A label that is missing in the tables ends the program.
    void take(Node *root);

    std::span<ProposalNode> nodes() { return std::span(nodes_).first(size_); }
    bool has_candidates(std::uint32_t place) { return at(place, 0); }
    bool is_built(std::uint32_t place) const { return nodes_[place].origin == Origin::combinations; }
    const Unit &unit(std::uint32_t number) const { return statistics_.unit(number); }

    // The most probable candidate, the first in the order of the enumeration among equals. REQUIRES: there is
    // one.
    Candidate best(std::uint32_t place);
    // The highest contribution of the node's candidates under the mother; negative: none fits.
    double best_below(std::uint32_t place, std::uint32_t mother);
    // The first of the node's candidates, in the order of the enumeration, that fits under the mother and
    // contributes so much that the product with `before` reaches what is wanted. REQUIRES: there is one.
    Fitting first_fitting(std::uint32_t place, std::uint32_t mother, double before, double wanted);

  private:
    static constexpr double no_candidate = -1.0;

    // A node with a tag.
    struct Tagged {
        std::uint32_t place, unit;
        bool operator==(const Tagged &) const = default;
    };
    struct TaggedHash {
        std::size_t operator()(const Tagged &t) const { return mix_hash(t.place, t.unit); }
    };

    // The nodes.
    void add_nodes(Node *root);
    void set_up(std::uint32_t place);
    void choose_columns(std::uint32_t place);
    void complete(std::uint32_t place);
    std::span<const std::uint32_t> columns(const ProposalNode &n) const {
        return std::span(columns_).subspan(n.first_column, n.nr_of_columns);
    }

    // Candidates by their probability.
    bool at(std::uint32_t place, std::size_t i) {
        while (nodes_[place].known.size() <= i)
            if (!hand_out(place)) return false;
        return true;
    }
    double at_most(std::uint32_t place, std::size_t i) const;
    bool hand_out(std::uint32_t place);
    void hand_out_combination(std::uint32_t place);

    // Candidates of a list.
    void hand_out_listed(ProposalNode &n);
    bool occurs_over_daughters(const ProposalNode &n, std::uint32_t unit, std::uint64_t &patience) const;
    std::uint64_t mothers_over(const ProposalNode &n);
    void list_rest(ProposalNode &n);
    double listed_prob(const ProposalNode &n, std::uint32_t unit) const;

    // Candidates by their tags.
    double prob_of(std::uint32_t place, std::uint32_t unit);
    double combined(std::uint32_t place, std::uint32_t unit, std::uint32_t from, double contributes);
    double product(const ProposalNode &n, std::uint32_t unit, std::uint32_t from, double contributes);
    void meet_more(std::uint32_t place);

    // Columns.
    void choose_drivers(ProposalNode &n);
    std::uint64_t mothers_at_most(std::uint32_t place);
    bool next_mother(std::uint32_t place, std::uint32_t &mother, double &contributes);
    double column_at_most(std::uint32_t place) const;
    template <class Enough, class Show>
    void show_fitting(std::uint32_t place, std::uint32_t mother, Enough &&enough, Show &&show);

    // The order of the enumeration.
    std::uint32_t ordered(std::uint32_t place, std::size_t i);
    bool order_next(std::uint32_t place);
    Fitting fitting(std::uint32_t place, std::uint32_t unit, std::uint32_t mother);

    // The share of the context's mother among all that its unit occurs with on the path; 0 in no checked
    // tree.
    double share_at(std::uint32_t context) {
        const std::int32_t count = statistics_.contexts[context].checked_count;
        return count ? share(count, statistics_.total_on_path(context)) : 0.0;
    }
    std::uint32_t category_owner(const Node *node) {
        return statistics_.owner_of(statistics_.category_entry(node->unit()));
    }

    Statistics &statistics_;
    std::vector<ProposalNode> nodes_;  // room of earlier trees is kept
    std::size_t size_ = 0;
    std::vector<std::uint32_t> columns_;  // of all nodes, by their places
    std::vector<std::uint32_t> drivers_;
    tsl::robin_map<Tagged, double, TaggedHash> combined_;  // what has been worked out
    tsl::robin_set<Tagged, TaggedHash> in_order_;          // what has its place in the order
};

}  // namespace brindle
