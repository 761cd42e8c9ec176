#include "edit/replacement.hpp"

#include "corpus/node_builder.hpp"
#include "edit/bracketing.hpp"
#include "edit/counted_change.hpp"
#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle {

std::optional<std::string> SubtreeReplacement::refuse(std::string_view bracketing) const {
    std::string message = check_bracketing(bracketing);
    if (message.empty()) return std::nullopt;
    return message;
}

Node *SubtreeReplacement::read(std::string_view bracketing) {
    NodeBuilder builder(corpus_);
    const char *p = bracketing.data();
    const SyntaxFault fault = builder.read(p, p + bracketing.size(), old_->tree());
    if (fault.kind != FaultKind::none)
        fault_in_hashtable();  // cannot be: the text has passed the same grammar
    return builder.top();
}

void SubtreeReplacement::put(Node *fresh) {
    count(fresh);
    withdraw_old();
    attach(fresh);
}

// As unchecked, but for the top's own context: it has no mother yet.
void SubtreeReplacement::count(Node *fresh) {
    Statistics &statistics = *corpus_.statistics;
    for_each_mother_last(fresh, [&](const Node *node) { statistics.count(node->unit(), false); });
    do_with(fresh, [&](const Node *node) { statistics.record_context(node, false); });
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

DetachedSubtree SubtreeReplacement::detach_old() {
    Statistics &statistics = *corpus_.statistics;
    DetachedSubtree subtree{old_};
    old_->set_mother(nullptr);
    old_->set_sister(nullptr);  // walks stay inside the old subtree
    do_with(old_, [&](Node *node) {
        ++subtree.nodes;
        const UndoTags tags = corpus_.undo_of(node);
        if (tags.undo_sem || tags.orig_sem) {
            subtree.undo.push_back({corpus_.nodes.number_of(node), tags});
            put_undo_tags(corpus_, node, {});
        }
        statistics.discount_tag(node->sem(), false);
        statistics.discount_category(node->unit(), false);
        statistics.discount_word(node->unit(), false);
    });
    return subtree;
}

void restore_undo_tags(Corpus &corpus, const DetachedSubtree &subtree) {
    for (const auto &[node, tags] : subtree.undo) put_undo_tags(corpus, &corpus.nodes[node], tags);
}

void free_nodes(Corpus &corpus, const DetachedSubtree &subtree) {
    do_with(subtree.top, [&](Node *node) { corpus.nodes.release(node); });
}

}  // namespace brindle
