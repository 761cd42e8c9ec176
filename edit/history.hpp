#pragma once
// Undo and redo of a session: what one command did is one step.
//
// A step is a row of records of 20 bytes, each the state of a node (or a tree's mark) on the other side of
// the change: undoing and redoing both exchange what a record holds with what is there. The state of a node
// includes what the node menu's own undo needs: its undo tags and its `changed` flag. The nodes of a replaced
// subtree are not freed but kept, so that the very same nodes come back and their numbers in other records
// stay good.
//
// Saving does not end the history. As long as nothing is saved between a change and its undo, undo brings
// back exactly what there was, the count of unsaved changes and each node's undo state included; likewise a
// redo after an undo. If the corpus has been saved in between, that state was of another file: then the
// change counts as an ordinary one against the file as it is now. A tag that comes back is an unsaved change,
// the node is changed, and its own undo leads to the tag that was saved; a category counts as when it is
// typed, a subtree as one change, its nodes unchanged. Redoing that leads back to what was saved, with
// nothing unsaved. A command amid which was saved is one step all the same; each part follows the rule for
// itself.
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "edit/change.hpp"
#include "edit/replacement.hpp"

namespace brindle {

// What is told of a step.
struct StepInfo {
    std::string name;
    int tree;     // the first one that it touched, 0-based: the one to show
    int changes;  // of tags, categories, marks and subtrees
    int trees;    // how many it touched
};

// The steps of one corpus, which notes its changes there (Corpus::history) as long as this lives. The corpus
// must outlive it.
class History {
  public:
    static constexpr std::size_t most_memory = std::size_t{256} << 20;

    // When more memory is needed than that, the oldest steps go; the newest stays, however large.
    explicit History(Corpus &corpus, std::size_t most_bytes = most_memory);
    ~History();
    History(const History &) = delete;
    History &operator=(const History &) = delete;

    // Take the latest step back, and do the step again that was taken back last; listeners hear of each
    // change. Return the step; none: there is none, or a step is open. What has been taken back is forgotten
    // when something new is done.
    std::optional<StepInfo> undo();
    std::optional<StepInfo> redo();

    // What undo and redo would do.
    std::optional<StepInfo> next_undo() const;
    std::optional<StepInfo> next_redo() const;

    // How many steps have been forgotten because memory was short.
    int dropped() const { return dropped_; }
    // Bytes held, those of kept nodes included.
    std::size_t bytes() const { return bytes_; }

    // ---------------------------------------------------------------- for HistoryStep and the road alone

    void open(std::string name);
    void close();

    // What is about to be changed.
    void note_tag(const Node *node);
    void note_category(const Node *node);
    void note_mark(int tree);
    void note_selection(const Node *node);
    // The new top of a subtree that is about to be replaced; the old nodes follow.
    void note_subtree(const Node *fresh);
    void keep(DetachedSubtree old);

  private:
    enum class Kind : std::uint8_t { tag, category, mark, selection, subtree };
    struct Record {
        std::uint32_t node;      // its number; of a subtree: its top in the tree
        std::uint32_t other;     // the unit; of a mark: the tree; of a subtree: the key in kept_
        std::uint32_t undo_sem;  // of a tag
        std::uint32_t orig_sem;
        Kind kind;
        bool flag;  // changed, checked or selected
    };
    // A step, or what a step did between two saves.
    struct Part {
        std::string name;  // "": the plain one
        Change::Kind kind;
        bool continues;  // the step of the part before
        int tree;
        int changes;
        int trees;
        int unsaved;          // unsaved changes on the other side
        std::uint32_t saves;  // when that was noted
        std::size_t records;
        std::size_t bytes() const { return sizeof *this + name.capacity(); }
    };

    // Noting.
    void note(Change::Kind kind, int tree, const Record &record);
    void begin_part(Change::Kind kind, int tree);
    void count_tree(Part &part, int tree);
    Record record_of(Kind kind, const Node *node) const;
    Record record_of_tag(const Node *node) const;
    // Forgetting.
    void forget_undone();
    void keep_within_memory();
    void free_kept(const Record &record);
    // Undo and redo.
    std::size_t end_of_step(std::size_t first_part) const;
    StepInfo info(std::size_t first_part) const;
    void undo(Part &part);
    void redo(Part &part);
    void exchange_unsaved(Part &part, bool saved_since, int unsaved);
    void exchange(Record &record, bool saved_since);
    void exchange_tag(Record &record, bool saved_since);
    void exchange_category(Record &record, bool saved_since);
    void exchange_subtree(Record &record, bool saved_since);

    Corpus &corpus_;
    std::size_t most_bytes_;

    std::deque<Record> records_;
    std::deque<Part> parts_;
    std::size_t done_records_ = 0;  // those behind have been taken back
    std::size_t done_parts_ = 0;
    std::unordered_map<std::uint32_t, DetachedSubtree> kept_;
    std::uint32_t next_key_ = 0;
    std::size_t bytes_ = 0;
    int dropped_ = 0;

    // The open step.
    int depth_ = 0;
    std::string name_;
    bool begun_ = false;                     // it has a part
    std::uint32_t serial_ = 0;               // its number
    std::vector<std::uint32_t> touched_by_;  // of each tree: the last step that touched it
};

// While one lives, all that happens to the corpus is one step. Within another one's life it adds nothing. A
// step in which nothing happens is none. Does nothing if the corpus has no history.
class HistoryStep {
  public:
    HistoryStep(Corpus &corpus, std::string name) : history_(corpus.history) {
        if (history_) history_->open(std::move(name));
    }
    ~HistoryStep() {
        if (history_) history_->close();
    }
    HistoryStep(const HistoryStep &) = delete;
    HistoryStep &operator=(const HistoryStep &) = delete;

  private:
    History *history_;
};

// The name of a step that is one change: "Tag, tree 121".
std::string plain_name(Change::Kind kind, int tree);

}  // namespace brindle
