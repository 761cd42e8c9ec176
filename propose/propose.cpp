#include "propose/propose.hpp"

#include "edit/change.hpp"
#include "model/traversal.hpp"

namespace brindle {

bool Proposer::propose(int t) {
    Node *const root = corpus_.tree(t).root;
    for_each_in_subtree(root, [this](Node *node) { select_in_step(corpus_, node, false); });
    finder_.take(root);
    choose(finder_);
    return put_guessed_labels();
}

// The tags are written when all are chosen, as the writing may change the candidates.
bool Proposer::put_guessed_labels() {
    bool has_break = false;
    const auto nodes = finder_.nodes();
    for (std::uint32_t place = 0; place < nodes.size(); ++place) {
        const ProposalNode &p = nodes[place];
        set_tag(corpus_, p.node, p.choice ? text_of(finder_.unit(p.choice).sem) : NO_MATCH);
        if (!p.node->dtrs() || (p.choice && finder_.is_built(place))) continue;
        select_in_step(corpus_, p.node, true);
        has_break = true;
    }
    return has_break;
}

}  // namespace brindle
