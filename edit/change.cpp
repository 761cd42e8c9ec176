#include "edit/change.hpp"

#include <vector>

#include "base/text.hpp"
#include "edit/label_rules.hpp"
#include "edit/replacement.hpp"
#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

void tell(Corpus &corpus, const Change &change) {
    for (ChangeListener *listener : corpus.listeners) listener->changed(corpus, change);
}

Label *label_of(Corpus &corpus, std::string_view text) {
    if (text.empty()) return nullptr;
    if (text.find(' ') == text.npos) return corpus.labels.intern(text);
    std::string copy(text);
    space2underscore(copy);
    return corpus.labels.intern(copy);
}

// Takes the contexts that name the node's labels out of the statistics, changes the node, and puts them in
// again: those of its daughters, the rightmost first, and its own.
template <class ChangeNode>
void with_contexts(Statistics &statistics, Node *node, bool checked, ChangeNode &&change_node) {
    std::vector<Node *> concerned;
    if (node->dtrs()) do_with_sisters(node->dtrs(), [&](Node *daughter) { concerned.push_back(daughter); });
    concerned.push_back(node);
    for (const Node *n : concerned) statistics.withdraw_context(n, checked);
    change_node();
    for (const Node *n : concerned) statistics.record_context(n, checked);
}

// Keeps what undo needs of the tag that the node is about to lose.
void keep_for_undo(Corpus &corpus, Node *node) {
    Statistics &statistics = *corpus.statistics;
    UndoTags &tags = corpus.undo_for_change(node);
    statistics.release(tags.undo_sem);
    statistics.retain(node->sem());
    tags.undo_sem = node->sem();
    if (node->changed()) return;
    ++corpus.unsaved_changes;
    node->set_changed(true);
    statistics.retain(node->sem());
    if (node->sem()) tags.orig_sem = node->sem();
}

void give_tag(Corpus &corpus, Node *node, Label *tag) {
    Statistics &statistics = *corpus.statistics;
    Unit *const old = node->unit();
    Unit *const fresh = corpus.units.intern(old->syn, tag, old->lex);
    const bool checked = corpus.tree_of(node).checked;
    keep_for_undo(corpus, node);
    with_contexts(statistics, node, checked, [&] {
        statistics.discount_together(old, checked);
        statistics.discount_tag(old->sem, checked);
        statistics.count_tag(tag, checked);
        node->set_unit(fresh);
        statistics.count_together(fresh, checked);
    });
    tell(corpus, {Change::Kind::tag, node->tree(), node, text_of(old->sem), text_of(tag)});
}

void give_category(Corpus &corpus, Node *node, Label *category) {
    Statistics &statistics = *corpus.statistics;
    Unit *const old = node->unit();
    Unit *const fresh = corpus.units.intern(category, old->sem, old->lex);
    const bool checked = corpus.tree_of(node).checked;
    if (!node->changed()) ++corpus.unsaved_changes;
    with_contexts(statistics, node, checked, [&] {
        statistics.discount_together(old, checked);
        statistics.discount_category(old, checked);
        statistics.count_category(fresh, checked);
        node->set_unit(fresh);
        statistics.count_together(fresh, checked);
    });
    tell(corpus, {Change::Kind::category, node->tree(), node, old->syn->view(), category->view()});
}

void give_mark(Corpus &corpus, int t, bool checked) {
    Tree &tree = corpus.tree(t);
    if (tree.checked == checked) return;
    tree.checked = checked;
    corpus.statistics->move_checked_counts(tree.root, checked);
    tell(corpus, {Change::Kind::check_mark, t, nullptr, checked ? "" : "*", checked ? "*" : ""});
}

std::optional<std::string> change_subtree(Corpus &corpus, const Change &change) {
    SubtreeReplacement replacement(corpus, change.node);
    if (auto refusal = replacement.refuse(change.after)) return refusal;
    give_mark(corpus, change.tree, false);
    Node *const fresh = replacement.put(change.after);
    ++corpus.unsaved_changes;
    tell(corpus, {Change::Kind::subtree, change.tree, fresh, {}, change.after, change.node});
    replacement.free_old();
    return std::nullopt;
}

}  // namespace

std::optional<std::string> make_change(Corpus &corpus, Change change) {
    switch (change.kind) {
        case Change::Kind::tag:
            if (auto refusal = refuse_tag(change.after)) return refusal;
            give_tag(corpus, change.node, label_of(corpus, change.after));
            break;
        case Change::Kind::category:
            if (auto refusal = refuse_category(change.after)) return refusal;
            if (!change.after.empty()) give_category(corpus, change.node, label_of(corpus, change.after));
            break;
        case Change::Kind::check_mark:
            give_mark(corpus, change.tree, !change.after.empty());
            break;
        case Change::Kind::subtree:
            return change_subtree(corpus, change);
    }
    return std::nullopt;
}

bool undo_last(Corpus &corpus, Node *node) {
    const UndoTags tags = corpus.undo_of(node);
    if (!node->changed() && !tags.undo_sem) return false;
    give_tag(corpus, node, tags.undo_sem);
    return true;
}

bool undo_all(Corpus &corpus, Node *node) {
    if (!node->changed()) return false;
    --corpus.unsaved_changes;
    give_tag(corpus, node, corpus.undo_of(node).orig_sem);
    UndoTags &tags = corpus.undo_for_change(node);
    corpus.statistics->release(tags.orig_sem);
    tags.orig_sem = nullptr;
    node->set_changed(false);
    return true;
}

bool is_below(const Node *top, const Node *n) {
    while (n && n != top) n = n->mother();
    return n;
}

}  // namespace brindle
