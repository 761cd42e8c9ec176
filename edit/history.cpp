#include "edit/history.hpp"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "corpus/writetrees.hpp"
#include "edit/counted_change.hpp"

namespace brindle {
namespace {

std::size_t bytes_of(const DetachedSubtree &subtree) {
    return subtree.nodes * (sizeof(Node) + sizeof(UndoTags)) + subtree.undo.size() * sizeof(subtree.undo[0]);
}

}  // namespace

std::string plain_name(Change::Kind kind, int tree) {
    static constexpr const char *names[] = {"Tag", "Category", "Check mark", "Bracketing"};
    return fmt::format("{}, tree {}", names[static_cast<int>(kind)], tree + 1);
}

History::History(Corpus &corpus, std::size_t most_bytes) : corpus_(corpus), most_bytes_(most_bytes) {
    corpus_.history = this;
}

History::~History() {
    for (const auto &[key, subtree] : kept_) free_nodes(corpus_, subtree);
    corpus_.history = nullptr;
}

// ---------------------------------------------------------------- noting

void History::open(std::string name) {
    if (depth_++ > 0) return;
    name_ = std::move(name);
    begun_ = false;
}

void History::close() {
    --depth_;
}

void History::begin_part(Change::Kind kind, int tree) {
    const bool continues = depth_ > 0 && begun_;
    if (!continues) {
        forget_undone();
        ++serial_;
    }
    parts_.push_back({depth_ > 0 && !continues ? std::move(name_) : std::string(), kind, continues, tree, 0,
                      0, corpus_.unsaved_changes, corpus_.saves, 0});
    bytes_ += parts_.back().bytes();
    ++done_parts_;
    begun_ = true;
}

void History::count_tree(Part &part, int tree) {
    const auto t = static_cast<std::size_t>(tree);
    if (t >= touched_by_.size()) touched_by_.resize(corpus_.trees.size());
    if (touched_by_[t] == serial_) return;
    touched_by_[t] = serial_;
    ++part.trees;
}

void History::note(Change::Kind kind, int tree, const Record &record) {
    if (depth_ == 0 || !begun_ || parts_.back().saves != corpus_.saves) begin_part(kind, tree);
    Part &part = parts_.back();
    records_.push_back(record);
    bytes_ += sizeof(Record);
    ++done_records_;
    ++part.records;
    part.changes += record.kind != Kind::selection;
    count_tree(part, tree);
    keep_within_memory();
}

History::Record History::record_of(Kind kind, const Node *node) const {
    return {
        corpus_.nodes.number_of(node), corpus_.units.number_of(node->unit()), 0, 0, kind, node->changed()};
}

History::Record History::record_of_tag(const Node *node) const {
    Record record = record_of(Kind::tag, node);
    const UndoTags tags = corpus_.undo_of(node);
    record.undo_sem = corpus_.labels.number_of(tags.undo_sem);
    record.orig_sem = corpus_.labels.number_of(tags.orig_sem);
    return record;
}

void History::note_tag(const Node *node) {
    note(Change::Kind::tag, node->tree(), record_of_tag(node));
}

void History::note_category(const Node *node) {
    note(Change::Kind::category, node->tree(), record_of(Kind::category, node));
}

void History::note_mark(int tree) {
    note(Change::Kind::check_mark, tree,
         {0, static_cast<std::uint32_t>(tree), 0, 0, Kind::mark, corpus_.tree(tree).checked});
}

void History::note_selection(const Node *node) {
    Record record = record_of(Kind::selection, node);
    record.flag = node->selected();
    note(Change::Kind::tag, node->tree(), record);
}

void History::note_subtree(const Node *fresh) {
    Record record = record_of(Kind::subtree, fresh);
    record.other = ++next_key_;
    note(Change::Kind::subtree, fresh->tree(), record);
}

void History::keep(DetachedSubtree old) {
    bytes_ += bytes_of(old);
    kept_.emplace(next_key_, std::move(old));
    keep_within_memory();
}

// ---------------------------------------------------------------- forgetting

// The nodes of no tree that the record keeps: all later records are forgotten with it, or all earlier ones
// have been forgotten, so none of those left names one of them.
void History::free_kept(const Record &record) {
    if (record.kind != Kind::subtree) return;
    const auto found = kept_.find(record.other);
    if (found == kept_.end()) return;  // it is just being noted
    bytes_ -= bytes_of(found->second);
    free_nodes(corpus_, found->second);
    kept_.erase(found);
}

void History::forget_undone() {
    for (; records_.size() > done_records_; records_.pop_back()) {
        free_kept(records_.back());
        bytes_ -= sizeof(Record);
    }
    for (; parts_.size() > done_parts_; parts_.pop_back()) bytes_ -= parts_.back().bytes();
}

void History::keep_within_memory() {
    while (bytes_ > most_bytes_) {
        const std::size_t parts = end_of_step(0);
        if (parts == parts_.size()) return;
        for (std::size_t n = parts; n > 0; --n, parts_.pop_front()) {
            const auto end = records_.begin() + static_cast<std::ptrdiff_t>(parts_.front().records);
            std::for_each(records_.begin(), end, [this](const Record &record) { free_kept(record); });
            records_.erase(records_.begin(), end);
            bytes_ -= parts_.front().records * sizeof(Record);
            done_records_ -= parts_.front().records;
            bytes_ -= parts_.front().bytes();
        }
        done_parts_ -= parts;
        ++dropped_;
    }
}

// ---------------------------------------------------------------- undo and redo

std::size_t History::end_of_step(std::size_t first_part) const {
    std::size_t part = first_part + 1;
    while (part < parts_.size() && parts_[part].continues) ++part;
    return part;
}

StepInfo History::info(std::size_t first_part) const {
    const Part &first = parts_[first_part];
    StepInfo info{first.name.empty() ? plain_name(first.kind, first.tree) : first.name, first.tree, 0, 0};
    for (std::size_t part = first_part; part < end_of_step(first_part); ++part) {
        info.changes += parts_[part].changes;
        info.trees += parts_[part].trees;
    }
    return info;
}

std::optional<StepInfo> History::next_undo() const {
    if (done_parts_ == 0) return std::nullopt;
    std::size_t part = done_parts_ - 1;
    while (parts_[part].continues) --part;
    return info(part);
}

std::optional<StepInfo> History::next_redo() const {
    if (done_parts_ == parts_.size()) return std::nullopt;
    return info(done_parts_);
}

std::optional<StepInfo> History::undo() {
    if (depth_ > 0 || done_parts_ == 0) return std::nullopt;
    while (parts_[--done_parts_].continues) undo(parts_[done_parts_]);
    undo(parts_[done_parts_]);
    return info(done_parts_);
}

std::optional<StepInfo> History::redo() {
    if (depth_ > 0 || done_parts_ == parts_.size()) return std::nullopt;
    const std::size_t first = done_parts_;
    for (const std::size_t end = end_of_step(first); done_parts_ < end; ++done_parts_)
        redo(parts_[done_parts_]);
    return info(first);
}

void History::undo(Part &part) {
    const bool saved_since = part.saves != corpus_.saves;
    const int unsaved = corpus_.unsaved_changes;
    for (std::size_t n = part.records; n > 0; --n) exchange(records_[--done_records_], saved_since);
    exchange_unsaved(part, saved_since, unsaved);
}

void History::redo(Part &part) {
    const bool saved_since = part.saves != corpus_.saves;
    const int unsaved = corpus_.unsaved_changes;
    for (std::size_t n = part.records; n > 0; --n) exchange(records_[done_records_++], saved_since);
    exchange_unsaved(part, saved_since, unsaved);
}

void History::exchange_unsaved(Part &part, bool saved_since, int unsaved) {
    if (!saved_since) corpus_.unsaved_changes = part.unsaved;
    part.unsaved = unsaved;
    part.saves = corpus_.saves;
}

void History::exchange(Record &record, bool saved_since) {
    switch (record.kind) {
        case Kind::tag:
            return exchange_tag(record, saved_since);
        case Kind::category:
            return exchange_category(record, saved_since);
        case Kind::mark:
            put_mark(corpus_, static_cast<int>(record.other), record.flag);
            record.flag = !record.flag;
            return;
        case Kind::selection: {
            Node &node = corpus_.nodes[record.node];
            const bool selected = node.selected();
            node.select(record.flag);
            record.flag = selected;
            return;
        }
        case Kind::subtree:
            return exchange_subtree(record, saved_since);
    }
}

void History::exchange_tag(Record &record, bool saved_since) {
    Node *const node = &corpus_.nodes[record.node];
    const Record now = record_of_tag(node);
    Label *const tag = corpus_.units[record.other].sem;
    if (!saved_since) {
        put_undo_tags(corpus_, node, {corpus_.labels[record.undo_sem], corpus_.labels[record.orig_sem]});
        node->set_changed(record.flag);
        put_tag(corpus_, node, tag);
    } else if (tag != node->sem()) {
        keep_for_undo(corpus_, node);
        put_tag(corpus_, node, tag);
    }
    record = now;
}

void History::exchange_category(Record &record, bool saved_since) {
    Node *const node = &corpus_.nodes[record.node];
    const Record now = record_of(Kind::category, node);
    Label *const category = corpus_.units[record.other].syn;
    if (!saved_since || category != node->syn()) {
        if (!node->changed()) ++corpus_.unsaved_changes;
        put_category(corpus_, node, category);
    }
    record = now;
}

void History::exchange_subtree(Record &record, bool saved_since) {
    DetachedSubtree &kept = kept_.at(record.other);
    bytes_ -= bytes_of(kept);
    Node *const old = &corpus_.nodes[record.node];
    Node *const fresh = kept.top;
    SubtreeReplacement replacement(corpus_, old);
    replacement.put(fresh);
    if (!saved_since) restore_undo_tags(corpus_, kept);
    ++corpus_.unsaved_changes;
    if (!corpus_.listeners.empty())
        tell(corpus_, {Change::Kind::subtree, fresh->tree(), fresh, {}, bracketing_of(fresh), old});
    kept = replacement.detach_old();
    bytes_ += bytes_of(kept);
    record.node = corpus_.nodes.number_of(fresh);
}

}  // namespace brindle
