#include "propose/choice.hpp"

#include <algorithm>
#include <bit>

namespace brindle {
namespace {

// The least double of 0 .. highest for which the test, which holds for `highest` and is monotone, holds.
// Mostly it is some few doubles away from the guess. Doubles that are not negative are ordered as their bits
// are.
template <class Test>
double least(double highest, double guess, Test &&test) {
    std::uint64_t fails = 0, holds = std::bit_cast<std::uint64_t>(highest);
    if (holds == 0 || test(0.0)) return 0.0;
    const auto look = [&](std::uint64_t at) {
        if (at > fails && at < holds) (test(std::bit_cast<double>(at)) ? holds : fails) = at;
    };
    const std::uint64_t near = guess > 0.0 && guess < highest ? std::bit_cast<std::uint64_t>(guess) : holds;
    for (std::uint64_t step = 2; step < near && holds - fails > 2 * step; step *= 16) {
        look(near - step);
        look(near + step);
    }
    while (holds - fails > 1) look(fails + (holds - fails) / 2);
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
    explicit CombinationFinder(CandidateFinder &finder) : finder_(finder) {}

    // Chooses this candidate for the node and, below it, those that it is built from.
    void choose_combination(std::uint32_t place, const Candidate &candidate) {
        open(place, candidate.unit, candidate.prob);
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
        std::uint32_t unit;      // the candidate's
        double wanted;           // what the product over the daughters not yet chosen must reach
        std::uint32_t daughter;  // how many daughters are not yet chosen
        std::size_t base;        // where the frame's daughters begin in dtrs_
        double share = 0.0;      // of the daughter whose own combination is being found
    };

    // What is known of a daughter.
    struct Daughter {
        std::uint32_t place;
        double best_before = 1.0;  // the highest product over the daughters before this one
        bool has_candidates = false;
        double contribution = 0.0;  // of the candidate chosen
    };

    void open(std::uint32_t place, std::uint32_t unit, double wanted) {
        const std::size_t base = dtrs_.size();
        double product = 1.0;
        const auto nodes = finder_.nodes();
        for (std::uint32_t d = place + 1; d != ProposalNode::none; d = nodes[d].sister) {
            const bool has_candidates = finder_.has_candidates(d),
                       is_last = nodes[d].sister == ProposalNode::none;
            dtrs_.push_back({d, product, has_candidates});
            if (has_candidates && !is_last) product = finder_.best_below(d, unit) * product;
        }
        frames_.push_back({unit, wanted, static_cast<std::uint32_t>(dtrs_.size() - base), base});
    }

    // Chooses for the last daughter that has no choice yet, or begins to look for its combination.
    void next_daughter() {
        Frame &frame = frames_.back();
        const Daughter daughter = dtrs_[frame.base + frame.daughter - 1];
        ProposalNode &node = finder_.nodes()[daughter.place];
        node.is_decided = true;
        if (!daughter.has_candidates) {
            --frame.daughter;
            return;
        }
        const double before = daughter.best_before, wanted = frame.wanted;
        const auto [candidate, share] = finder_.first_fitting(daughter.place, frame.unit, before, wanted);
        node.choice = candidate.unit;
        if (!finder_.is_built(daughter.place)) return take(frame, contribution(candidate.prob, share));
        frame.share = share;
        const auto is_enough = [=, s = share](double p) { return contribution(p, s) * before >= wanted; };
        open(daughter.place, candidate.unit, least(candidate.prob, wanted / before / share, is_enough));
    }

    // The present daughter contributes this; the daughters before it must reach the rest.
    void take(Frame &frame, double contributes) {
        Daughter &daughter = dtrs_[frame.base + --frame.daughter];
        daughter.contribution = contributes;
        const double wanted = frame.wanted;
        frame.wanted = least(daughter.best_before, wanted / contributes,
                             [=](double p) { return contributes * p >= wanted; });
    }

    // All daughters are chosen: the mother takes the combination.
    void close() {
        const Frame frame = frames_.back();
        frames_.pop_back();
        double product = 1.0;
        for (std::size_t d = frame.base; d < dtrs_.size(); ++d)
            if (dtrs_[d].has_candidates) product = dtrs_[d].contribution * product;
        dtrs_.resize(frame.base);
        if (!frames_.empty()) take(frames_.back(), contribution(product, frames_.back().share));
    }

    CandidateFinder &finder_;
    std::vector<Frame> frames_;
    std::vector<Daughter> dtrs_;  // the daughters of all frames
};

}  // namespace

void choose(CandidateFinder &finder) {
    CombinationFinder combinations(finder);
    const auto nodes = finder.nodes();
    for (std::uint32_t place = 0; place < nodes.size(); ++place) {
        if (nodes[place].is_decided) continue;
        nodes[place].is_decided = true;
        if (!finder.has_candidates(place)) continue;
        const Candidate best = finder.best(place);
        nodes[place].choice = best.unit;
        if (finder.is_built(place)) combinations.choose_combination(place, best);
    }
}

}  // namespace brindle
