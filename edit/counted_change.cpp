#include "edit/counted_change.hpp"

#include <vector>

#include "edit/change.hpp"
#include "model/traversal.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

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

// A reference to a tag of which there may be no entry any more.
void hold(Statistics &statistics, Label *tag) {
    if (!tag) return;
    statistics.label_entry(tag, LabelKind::SEM);
    statistics.retain(tag);
}

}  // namespace

void put_tag(Corpus &corpus, Node *node, Label *tag) {
    Statistics &statistics = *corpus.statistics;
    Unit *const old = node->unit();
    Unit *const fresh = corpus.units.intern(old->syn, tag, old->lex);
    const bool checked = corpus.tree_of(node).checked;
    with_contexts(statistics, node, checked, [&] {
        statistics.discount_together(old, checked);
        statistics.discount_tag(old->sem, checked);
        statistics.count_tag(tag, checked);
        node->set_unit(fresh);
        statistics.count_together(fresh, checked);
    });
    tell(corpus, {Change::Kind::tag, node->tree(), node, text_of(old->sem), text_of(tag)});
}

void put_category(Corpus &corpus, Node *node, Label *category) {
    Statistics &statistics = *corpus.statistics;
    Unit *const old = node->unit();
    Unit *const fresh = corpus.units.intern(category, old->sem, old->lex);
    const bool checked = corpus.tree_of(node).checked;
    with_contexts(statistics, node, checked, [&] {
        statistics.discount_together(old, checked);
        statistics.discount_category(old, checked);
        statistics.count_category(fresh, checked);
        node->set_unit(fresh);
        statistics.count_together(fresh, checked);
    });
    tell(corpus, {Change::Kind::category, node->tree(), node, old->syn->view(), category->view()});
}

void put_mark(Corpus &corpus, int t, bool checked) {
    Tree &tree = corpus.tree(t);
    tree.checked = checked;
    corpus.statistics->move_checked_counts(tree.root, checked);
    tell(corpus, {Change::Kind::check_mark, t, nullptr, checked ? "" : "*", checked ? "*" : ""});
}

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

void put_undo_tags(Corpus &corpus, const Node *node, UndoTags tags) {
    Statistics &statistics = *corpus.statistics;
    hold(statistics, tags.undo_sem);
    hold(statistics, tags.orig_sem);
    UndoTags &place = corpus.undo_for_change(node);
    statistics.release(place.undo_sem);
    statistics.release(place.orig_sem);
    place = tags;
}

}  // namespace brindle
