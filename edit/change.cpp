#include "edit/change.hpp"

#include <utility>

#include "base/text.hpp"
#include "edit/counted_change.hpp"
#include "edit/history.hpp"
#include "edit/label_rules.hpp"
#include "edit/replacement.hpp"
#include "stats/statistics.hpp"

namespace brindle {
namespace {

Label *label_of(Corpus &corpus, std::string_view text) {
    if (text.empty()) return nullptr;
    if (text.find(' ') == text.npos) return corpus.labels.intern(text);
    std::string copy(text);
    space2underscore(copy);
    return corpus.labels.intern(copy);
}

void give_tag(Corpus &corpus, Node *node, Label *tag) {
    if (corpus.history) corpus.history->note_tag(node);
    keep_for_undo(corpus, node);
    put_tag(corpus, node, tag);
}

void give_category(Corpus &corpus, Node *node, Label *category) {
    if (corpus.history) corpus.history->note_category(node);
    if (!node->changed()) ++corpus.unsaved_changes;
    put_category(corpus, node, category);
}

void give_mark(Corpus &corpus, int tree, bool checked) {
    if (corpus.tree(tree).checked == checked) return;
    if (corpus.history) corpus.history->note_mark(tree);
    put_mark(corpus, tree, checked);
}

std::optional<std::string> change_subtree(Corpus &corpus, const Change &change) {
    SubtreeReplacement replacement(corpus, change.node);
    if (auto refusal = replacement.refuse(change.after)) return refusal;
    const HistoryStep step(corpus, plain_name(Change::Kind::subtree, change.tree));
    give_mark(corpus, change.tree, false);
    Node *const fresh = replacement.read(change.after);
    if (corpus.history) corpus.history->note_subtree(fresh);
    replacement.put(fresh);
    ++corpus.unsaved_changes;
    tell(corpus, {Change::Kind::subtree, change.tree, fresh, {}, change.after, change.node});
    DetachedSubtree old = replacement.detach_old();
    if (corpus.history)
        corpus.history->keep(std::move(old));
    else
        free_nodes(corpus, old);
    return std::nullopt;
}

}  // namespace

void tell(Corpus &corpus, const Change &change) {
    for (ChangeListener *listener : corpus.listeners) listener->changed(corpus, change);
}

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
    give_tag(corpus, node, corpus.undo_of(node).orig_sem);
    --corpus.unsaved_changes;
    UndoTags &tags = corpus.undo_for_change(node);
    corpus.statistics->release(tags.orig_sem);
    tags.orig_sem = nullptr;
    node->set_changed(false);
    return true;
}

void select_in_step(Corpus &corpus, Node *node, bool selected) {
    if (node->selected() == selected) return;
    if (corpus.history) corpus.history->note_selection(node);
    node->select(selected);
}

bool is_below(const Node *top, const Node *n) {
    while (n && n != top) n = n->mother();
    return n;
}

}  // namespace brindle
