#include "propose/choice.hpp"

#include <algorithm>
#include <bit>

namespace brindle {
namespace {

// The least double of 0 .. highest for which the test, which holds for `highest` and is monotone, holds.
// Doubles that are not negative are ordered as their bits are.
template <class Test>
double least(double highest, Test &&test) {
    std::uint64_t fails = 0, holds = std::bit_cast<std::uint64_t>(highest);
    if (holds == 0 || test(0.0)) return 0.0;
    if (!test(std::bit_cast<double>(holds - 1))) return highest;
    while (holds - fails > 1) {
        const std::uint64_t middle = fails + (holds - fails) / 2;
        (test(std::bit_cast<double>(middle)) ? holds : fails) = middle;
    }
    return std::bit_cast<double>(holds);
}

// Finds the first combination of a candidate, in the order of the enumeration, that is as probable as wanted.
//
// The last daughter is the enumeration's slowest digit. So, from the last daughter to the first, each takes
// the first of its candidates with which the best of the daughters before it still reach what is wanted;
// within a candidate built from its own daughters, the first combination that is probable enough for that.
// Usually only the most probable is; but products of different numbers may be rounded, or vanish, to the same
// one.
class CombinationFinder {
  public:
    explicit CombinationFinder(PTree &tree) : tree_(tree) {}

    // Chooses this candidate for the node and, below it, those that it is built from.
    void choose_combination(std::uint32_t place, std::uint32_t entry) {
        open(place, entry, tree_.entries[entry].prob);
        while (!frames_.empty()) {
            if (frames_.back().daughter == 0)
                close();
            else
                next_daughter();
        }
    }

  private:
    // A candidate whose daughters are being chosen, from the last to the first.
    struct Frame {
        std::uint32_t place;
        std::uint32_t entry;
        double wanted;           // what the product over the daughters not yet chosen must reach
        std::uint32_t daughter;  // how many daughters are not yet chosen
        std::size_t base;        // where the frame's daughters begin in dtrs_ and taken_
        double share = 0.0;      // of the daughter whose own combination is being found
    };

    struct Taken {
        double best_before;   // the highest product over the daughters before this one
        double contribution;  // of the candidate chosen
        bool has_candidates;
    };

    void open(std::uint32_t place, std::uint32_t entry, double wanted) {
        tree_.daughters(place, room_for_dtrs_);
        const std::size_t base = dtrs_.size();
        dtrs_.insert(dtrs_.end(), room_for_dtrs_.begin(), room_for_dtrs_.end());
        frames_.push_back({place, entry, wanted, static_cast<std::uint32_t>(dtrs_.size() - base), base});
        double product = 1.0;
        for (std::size_t d = base; d < dtrs_.size(); ++d) {
            const bool has_candidates = tree_.nodes[dtrs_[d]].nr_of_entries > 0;
            taken_.push_back({product, 0.0, has_candidates});
            if (has_candidates) product = best_contribution(frames_.back(), d) * product;
        }
    }

    // Chooses for the last daughter that has no choice yet, or begins to look for its combination.
    void next_daughter() {
        Frame &frame = frames_.back();
        const std::size_t d = frame.base + frame.daughter - 1;
        const std::uint32_t place = dtrs_[d];
        PTreeNode &daughter = tree_.nodes[place];
        daughter.is_decided = true;
        if (!taken_[d].has_candidates) {
            --frame.daughter;
            return;
        }
        const double before = taken_[d].best_before, wanted = frame.wanted;
        for (std::uint32_t e = daughter.entries; e < daughter.entries + daughter.nr_of_entries; ++e) {
            const double share = share_of(frame, d, tree_.entries[e]);
            const double prob = tree_.entries[e].prob;
            if (share == 0.0 || contribution(prob, share) * before < wanted) continue;
            daughter.choice = e;
            if (!tree_.entries[e].built) return take(frame, contribution(prob, share));
            frame.share = share;
            const auto is_enough = [=](double p) { return contribution(p, share) * before >= wanted; };
            return open(place, e, least(prob, is_enough));
        }
        fault_in_hashtable();  // cannot be: the best candidates reach what is wanted
    }

    // The present daughter contributes this; the daughters before it must reach the rest.
    void take(Frame &frame, double contributes) {
        Taken &taken = taken_[frame.base + --frame.daughter];
        taken.contribution = contributes;
        const double wanted = frame.wanted;
        frame.wanted = least(taken.best_before, [=](double p) { return contributes * p >= wanted; });
    }

    // All daughters are chosen: the mother takes the combination.
    void close() {
        const Frame frame = frames_.back();
        frames_.pop_back();
        double product = 1.0;
        for (std::size_t d = frame.base; d < taken_.size(); ++d)
            if (taken_[d].has_candidates) product = taken_[d].contribution * product;
        taken_.resize(frame.base);
        dtrs_.resize(frame.base);
        if (!frames_.empty()) take(frames_.back(), contribution(product, frames_.back().share));
    }

    // The share of the chosen mother's context among those of the daughter's candidate; 0: it does not fit.
    double share_of(const Frame &frame, std::size_t d, const PEntry &candidate) {
        const PTreeNode &p = tree_.nodes[frame.place];
        const Path path{p.node->syn, static_cast<std::int32_t>(d - frame.base) + 1, p.node->nr_of_dtrs};
        const ParentRecord *record = candidate.parents().find(
            {path.syn, tree_.entries[frame.entry].sem()->name, path.dtr_nr, path.nr_of_dtrs});
        if (!record || record->checked_count == 0) return 0.0;
        return share(record->checked_count, candidate.parents().tags_of(path, room_).total);
    }

    double best_contribution(const Frame &frame, std::size_t d) {
        const PTreeNode &daughter = tree_.nodes[dtrs_[d]];
        double best = 0.0;
        for (std::uint32_t e = daughter.entries; e < daughter.entries + daughter.nr_of_entries; ++e) {
            const PEntry &candidate = tree_.entries[e];
            best = std::max(best, contribution(candidate.prob, share_of(frame, d, candidate)));
        }
        return best;
    }

    PTree &tree_;
    std::vector<Frame> frames_;
    std::vector<std::uint32_t> dtrs_;  // the daughters of all frames, by their places in the tree
    std::vector<Taken> taken_;         // what is known of each of them
    std::vector<std::uint32_t> room_for_dtrs_;
    PathTags room_;
};

}  // namespace

void choose(PTree &tree) {
    CombinationFinder finder(tree);
    for (std::uint32_t place = 0; place < tree.nodes.size(); ++place) {
        PTreeNode &p = tree.nodes[place];
        if (p.is_decided) continue;
        p.is_decided = true;
        p.choice = get_most_probable_root(tree, p);
        if (p.choice != PTreeNode::none && tree.entries[p.choice].built)
            finder.choose_combination(place, p.choice);
    }
}

}  // namespace brindle
