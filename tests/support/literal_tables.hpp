#pragma once
// The label statistics in the most literal way: vectors searched from end to end, bubble-sorted after every
// change. Slow, and so plain that it can be believed; the real tables must list everything in the same order.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/corpus.hpp"

namespace brindle::test {

class LiteralTables {
  public:
    // The tables of the corpus as its reader makes them.
    explicit LiteralTables(const Corpus &corpus);

    // Do to these tables what the change of the corpus will do to the real ones. Call them before.
    void change_tag(const Node *node, const std::string &tag);
    void change_category(const Node *node, const std::string &category);
    void undo_last(const Node *node);
    void undo_all(const Node *node);
    void set_checked(int tree, bool checked);
    void forget_edits();

    // Every chain with every list, each in its order, as `tables` (support/test_corpus.hpp) tells the real
    // ones.
    std::string text() const;

  private:
    struct Element {
        std::string name;
        int count = 0;
        int checked_count = 0;
        std::vector<Element> contexts;
    };
    struct Entry {
        std::string name;
        int kind = 0;  // 0: a word
        int count = 0;
        int checked_count = 0;
        std::vector<Element> links;
    };
    using Chain = std::vector<Entry>;
    // The labels of a node, or of a node as it is about to be.
    struct Labels {
        std::string syn, sem, lex;
        int kind;
    };

    bool is_checked(const Node *node) const { return corpus_.tree_of(node).checked; }
    void store_tree(Node *root, bool checked);
    static Labels labels_of(const Node *node);
    static std::string context_of(const Node *node, const Labels &mother);
    Chain &chain(const std::string &name, int kind);
    Entry &entry(const std::string &name, int kind);
    void count_entry(const std::string &name, int kind, int by, int checked_by);
    // The element after the change; null: it has gone.
    static Element *count(std::vector<Element> &list, const std::string &name, int by, int checked_by);
    void count_links(const Labels &labels, int by, int checked_by);
    void count_context(const Labels &labels, const std::string &context, int by, int checked_by);
    void count_contexts_around(const Node *node, const Labels &labels, int by);
    void change(const Node *node, const Labels &to, int kind_of_changed);
    void handle_undo(const Label *release, const Label *retain);

    const Corpus &corpus_;
    std::array<Chain, nr_of_buckets> table_, lex_table_;
};

}  // namespace brindle::test
