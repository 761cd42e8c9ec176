#include "stats/change_ahead.hpp"

#include <array>
#include <cstdint>

#include "model/fetch_ahead.hpp"
#include "stats/links.hpp"

namespace brindle {
namespace {

// The entry of a tag as far as there is one (null name: the entry of "no tag").
LabelEntry *entry_of_tag(Label *name) {
    return search(name, LabelKind::SEM, MustExist::no);
}

// Contexts on their way from memory: the slots of the index first, then the records, then the records'
// neighbours.
class ContextsAhead {
  public:
    void add(const Parents &parents, const Context &context) {
        if (size_ == most) return;
        const std::uint32_t hash = parents.hash(context);
        parents.prefetch(hash);
        contexts_[size_++] = {&parents, context, hash};
    }
    void fetch_elements() const {
        for (std::size_t i = 0; i < size_; ++i) contexts_[i].parents->prefetch_element(contexts_[i].hash);
    }
    void fetch_neighbours() const {
        for (std::size_t i = 0; i < size_; ++i)
            contexts_[i].parents->prefetch_neighbours(contexts_[i].context, contexts_[i].hash);
    }

  private:
    // What a wider mother has besides comes later, when it is counted.
    static constexpr std::size_t most = 24;
    struct ContextAhead {
        const Parents *parents;
        Context context;
        std::uint32_t hash;
    };
    std::array<ContextAhead, most> contexts_;
    std::size_t size_ = 0;
};

// The steps, each of which looks at what the one before has asked for.
class ChangeAhead {
  public:
    ChangeAhead(const Node *node, std::string_view tag) : node_(node), name_(tag, &tag_) {
        fetch_ahead(node);
    }

    void fetch_family() {
        prefetch({&name_, 1});
        fetch_ahead(node_->link);
        fetch_ahead(node_->lexlink);
        fetch_ahead(node_->mother);
        fetch_ahead(node_->dtrs);
        fetch_ahead(node_->sem);
        fetch_ahead(node_->undo_sem);
        fetch_ahead(node_->lex);
    }

    void fetch_entries() {
        for (const Node *d = node_->dtrs; d; d = d->sister) fetch_ahead(d->link);
        if (node_->mother) fetch_ahead(node_->mother->sem);
        if (node_->undo_sem) fetch_ahead(node_->undo_sem->sem);
        if (node_->lex) fetch_ahead(node_->lex->word);
        fetch_ahead(node_->link->twin);
        old_ = entry_of_tag(node_->sem);
        fetch_ahead(old_);
        tag_ = name_.text.empty() ? nullptr : find_label(name_.text);
        if (tag_ || name_.text.empty()) new_ = entry_of_tag(tag_);
        fetch_ahead(new_);
    }

    void fetch_slots() {
        category_ = category_entry(node_);
        if (node_->mother) fetch_slots_of_own_context();
        for (const Node *d = node_->dtrs; d; d = d->sister) {
            contexts_.add(d->link->parents, context_below(d, old_));
            if (new_) contexts_.add(d->link->parents, context_below(d, new_));
        }
        if (node_->link->count == 1) fetch_slots_of_pair(old_);
        if (new_) fetch_slots_of_pair(new_);
    }

    void fetch_elements() {
        contexts_.fetch_elements();
        category_->links.prefetch_neighbours(node_->link);
        old_->links.prefetch_neighbours(node_->link->twin);
        if (node_->lexlink) word_entry(node_)->links.prefetch_neighbours(node_->lexlink);
        if (!new_) return;
        new_->links.prefetch_element(new_->links.hash(category_));
        category_->links.prefetch_element(category_->links.hash(new_));
        if (node_->lex) word_entry(node_)->links.prefetch_element(hash_in_word(new_));
    }

    // The node's context in the lists where it will be counted.
    void fetch_new_lists() {
        contexts_.fetch_neighbours();
        if (!new_) return;
        const LexLink *lexlink = node_->lex ? search_lexlink(word_entry(node_), category_, new_) : nullptr;
        const LabelLink *link = lexlink ? lexlink->link : search_link(category_, new_);
        if (!link) return;
        fetch_ahead(link);
        fetch_ahead(link->twin);
        if (!node_->mother) return;
        new_contexts_.add(link->parents, context_of(node_));
        if (lexlink) new_contexts_.add(lexlink->parents, context_of(node_));
    }

    void fetch_new_elements() const { new_contexts_.fetch_elements(); }

  private:
    Context context_below(const Node *daughter, LabelEntry *tag) const {
        return {category_, tag, dtr_nr(daughter), node_->nr_of_dtrs};
    }
    std::uint32_t hash_in_word(LabelEntry *tag) const {
        return word_entry(node_)->links.hash({category_, tag});
    }

    void fetch_slots_of_own_context() {
        const Context own = context_of(node_);
        contexts_.add(node_->link->parents, own);
        if (node_->lexlink) contexts_.add(node_->lexlink->parents, own);
    }
    void fetch_slots_of_pair(LabelEntry *tag) const {
        category_->links.prefetch(category_->links.hash(tag));
        tag->links.prefetch(tag->links.hash(category_));
        if (node_->lex) word_entry(node_)->links.prefetch(hash_in_word(tag));
    }

    const Node *node_;
    Label *tag_ = nullptr;
    Unnamed name_;
    LabelEntry *category_ = nullptr;
    LabelEntry *old_ = nullptr;
    LabelEntry *new_ = nullptr;  // null: nobody has the tag
    ContextsAhead contexts_;
    ContextsAhead new_contexts_;
};

}  // namespace

void fetch_change_ahead(const Node *node, std::string_view tag) {
    ChangeAhead ahead(node, tag);
    if (!node->link) return;
    ahead.fetch_family();
    ahead.fetch_entries();
    ahead.fetch_slots();
    ahead.fetch_elements();
    ahead.fetch_new_lists();
    ahead.fetch_new_elements();
}

}  // namespace brindle
