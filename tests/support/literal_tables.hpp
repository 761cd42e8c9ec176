#pragma once
// The label statistics in the most literal way: vectors searched from end to end, bubble-sorted after every
// change. Slow, and so plain that it can be believed; the real tables must list everything in the same order.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/node.hpp"

namespace brindle::test {

class LiteralTables {
  public:
    // Stores a tree under the flag, as the corpus reader does.
    void store_tree(Node *root, bool checked);

    // Does to these tables what the change of the node's tag or category will do to the real ones. Call it
    // before.
    void change_tag(const Node *node, const std::string &tag, bool checked);
    void change_category(const Node *node, const std::string &category, bool checked);
    void undo_all(const Node *node, bool checked);
    void set_checked(Node *root, bool checked);
    // As after a save. Call it before the real one.
    void reset(const Node *node);

    // Every chain with every list, each in its order. The second is that of the real tables.
    std::string text() const;
    static std::string text_of_real_tables();

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

    static Labels labels_of(const Node *node);
    static std::string context_of(const Node *node, const Labels &mother);
    Chain &chain(const std::string &name, int kind);
    Entry &entry(const std::string &name, int kind);
    void count_entry(const std::string &name, int kind, int by, int checked_by);
    // The element after the change; null: it has gone.
    static Element *count(std::vector<Element> &list, const std::string &name, int by, int checked_by);
    void count_links(const Labels &labels, int by, int checked_by);
    void count_context(const Labels &labels, const std::string &context, int by, int checked_by);
    void count_contexts_around(const Node *node, const Labels &labels, int by, bool checked);
    void change(const Node *node, const Labels &to, int kind_of_changed, bool checked);
    void handle_undo(const Label *release, const Label *retain);

    std::array<Chain, nr_of_buckets> table_, lex_table_;
};

}  // namespace brindle::test
