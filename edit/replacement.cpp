#include "edit/replacement.hpp"

#include "corpus/node_builder.hpp"
#include "edit/bracketing.hpp"
#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle {

std::optional<std::string> SubtreeReplacement::refuse(std::string_view bracketing) const {
    std::string message = check_bracketing(bracketing);
    if (message.empty()) return std::nullopt;
    return message;
}

Node *SubtreeReplacement::put(std::string_view bracketing) {
    Node *const fresh = read(bracketing);
    withdraw_old();
    attach(fresh);
    return fresh;
}

// Reads the nodes and counts them as unchecked, but for the top's own context: it has no mother yet.
Node *SubtreeReplacement::read(std::string_view bracketing) {
    NodeBuilder builder(corpus_);
    const char *p = bracketing.data();
    const SyntaxFault fault = builder.read(p, p + bracketing.size(), old_->tree());
    if (fault.kind != FaultKind::none)
        fault_in_hashtable();  // cannot be: the text has passed the same grammar
    Statistics &statistics = *corpus_.statistics;
    for (const std::uint32_t place : builder.tree().completed)
        statistics.count(builder.tree().nodes[place].node->unit(), false);
    do_with(builder.top(), [&](const Node *node) { statistics.record_context(node, false); });
    return builder.top();
}

void SubtreeReplacement::withdraw_old() {
    Statistics &statistics = *corpus_.statistics;
    for_each_in_subtree(old_, [&](Node *node) { statistics.withdraw_context(node, false); });
    for_each_in_subtree(old_, [&](Node *node) { statistics.discount_together(node->unit(), false); });
}

void SubtreeReplacement::attach(Node *fresh) {
    fresh->set_mother(old_->mother());
    fresh->set_sister(old_->sister());
    fresh->set_position(static_cast<std::uint32_t>(old_->position()));
    Node *const mother = old_->mother();
    if (!mother) {
        corpus_.tree_of(old_).root = fresh;
        return;
    }
    if (mother->dtrs() == old_) {
        mother->set_dtrs(fresh);
    } else {
        Node *left = mother->dtrs();
        while (left->sister() != old_) left = left->sister();
        left->set_sister(fresh);
    }
    corpus_.statistics->record_context(fresh, false);
}

void SubtreeReplacement::free_old() {
    Statistics &statistics = *corpus_.statistics;
    old_->set_sister(nullptr);  // the walk stays inside the old subtree
    do_with(old_, [&](Node *node) {
        UndoTags &tags = corpus_.undo_for_change(node);
        statistics.release(tags.undo_sem);
        statistics.release(tags.orig_sem);
        tags = {};
        statistics.discount_tag(node->sem(), false);
        statistics.discount_category(node->unit(), false);
        statistics.discount_word(node->unit(), false);
        corpus_.nodes.release(node);
    });
}

}  // namespace brindle
