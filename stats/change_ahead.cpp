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
// neighbours. The lists may be on their way when they are added.
class ContextsAhead {
  public:
    void add(const Parents &parents, const Context &context) {
        if (size_ == most) return;
        const std::uint32_t hash = parents.hash(context);
        Parents::prefetch_slot(hash);
        contexts_[size_++] = {&parents, context, hash};
    }
    void fetch_elements() const {
        for (std::size_t i = 0; i < size_; ++i) fetch_ahead(contexts_[i].parents->guess(contexts_[i].hash));
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
        fetch_whole_ahead(node);
    }

    void fetch_family() {
        prefetch({&name_, 1});
        fetch_whole_ahead(node_->mother);
        fetch_whole_ahead(node_->dtrs);
        fetch_ahead(node_->sem);
        fetch_ahead(node_->lex);
        fetch_ahead(node_->link);
        fetch_ahead(node_->lexlink);
        fetch_ahead(node_->undo_sem);
    }

    void fetch_slots() {
        category_ = category_entry(node_);
        if (node_->mother) {
            own_ = context_of(node_);
            add_contexts(contexts_, node_, own_);
        }
        tag_ = name_.text.empty() ? nullptr : find_label(name_.text);
        if (tag_ || name_.text.empty()) new_ = entry_of_tag(tag_);
        for (const Node *d = node_->dtrs; d; d = d->sister) fetch_slots_below(d);
        old_ = entry_of_tag(node_->sem);
        fetch_whole_ahead(old_);
        fetch_whole_ahead(new_);
        if (node_->undo_sem) fetch_ahead(node_->undo_sem->sem);
        if (node_->lex) fetch_ahead(node_->lex->word);
        if (new_) fetch_slots_of_pair(new_);
        if (node_->link->count == 1) fetch_slots_of_pair(old_);
        fetch_whole_ahead(node_->link->twin);
    }

    void fetch_elements() {
        contexts_.fetch_elements();
        if (new_) fetch_new_links();
        category_->links.prefetch_neighbours(node_->link);
        old_->links.prefetch_neighbours(node_->link->twin);
        if (node_->lexlink) word_entry(node_)->links.prefetch_neighbours(node_->lexlink);
    }

    void fetch_neighbours() const {
        contexts_.fetch_neighbours();
        new_contexts_.fetch_elements();
    }

  private:
    // A node's contexts stand at its link and, if it has a word, at its word's.
    static void add_contexts(ContextsAhead &contexts, const Node *node, const Context &context) {
        contexts.add(node->link->parents, context);
        if (node->lexlink) contexts.add(node->lexlink->parents, context);
    }

    void fetch_slots_below(const Node *daughter) {
        fetch_ahead(daughter->link);
        fetch_ahead(daughter->lexlink);
        Context context = context_of(daughter);
        add_contexts(contexts_, daughter, context);
        if (!new_) return;
        context.sem = tag_;
        add_contexts(contexts_, daughter, context);
    }
    std::uint32_t hash_in_word(LabelEntry *tag) const {
        return word_entry(node_)->links.hash({category_, tag});
    }
    void fetch_slots_of_pair(LabelEntry *tag) const {
        LabelLinks::prefetch_slot(category_->links.hash(tag));
        LabelLinks::prefetch_slot(tag->links.hash(category_));
        if (node_->lex) LexLinks::prefetch_slot(hash_in_word(tag));
    }

    // The links that the node will have, and its context in their lists.
    void fetch_new_links() {
        if (const LabelLink *link = category_->links.guess(category_->links.hash(new_))) fetch_new_link(link);
        fetch_ahead(new_->links.guess(new_->links.hash(category_)));
        if (!node_->lex) return;
        if (const LexLink *link = word_entry(node_)->links.guess(hash_in_word(new_))) fetch_new_link(link);
    }
    template <class Link>
    void fetch_new_link(const Link *link) {
        fetch_ahead(link);
        if (node_->mother) new_contexts_.add(link->parents, own_);
    }

    const Node *node_;
    Label *tag_ = nullptr;
    Unnamed name_;
    Context own_ = {};
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
    ahead.fetch_slots();
    ahead.fetch_elements();
    ahead.fetch_neighbours();
}

}  // namespace brindle
