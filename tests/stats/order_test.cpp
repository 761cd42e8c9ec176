// The order of every chain and list, after any sequence of work, is that of the literal procedure.
#include <gtest/gtest.h>

#include "model/traversal.hpp"
#include "support/corpus.hpp"
#include "support/literal_tables.hpp"
#include "support/random_edits.hpp"

namespace brindle::test {
namespace {

// Works on the corpus and on its literal twin, and compares them after one step in `between`.
class Twins {
  public:
    Twins(unsigned seed, int vocabulary)
        : corpus_(random_corpus(seed, 12, vocabulary)), edits_(seed, vocabulary) {
        for (const TreeEntry &tree : forest) literal_.store_tree(tree.root, tree.checked);
    }

    void compare() const { ASSERT_EQ(LiteralTables::text_of_real_tables(), literal_.text()); }

    void step() {
        const int t = edits_.below(amount);
        const TreeEntry &tree = corpus_.tree(t);
        Node *node = edits_.random_node(t);
        const TreeCheckedScope scope(tree);
        const int kind = edits_.below(20);
        if (kind < 10)
            tag(node, edits_.below(5) ? edits_.random_tag() : "");
        else if (kind < 13)
            category(node, (node->lex ? "T" : "N") + std::to_string(edits_.below(3)));
        else if (kind < 15)
            undo(node, kind == 13);
        else if (kind < 19)
            check(t, !tree.checked);
        else
            save();
    }

  private:
    void tag(Node *node, const std::string &text) {
        literal_.change_tag(node, text, TREE_CHECKED);
        new_label(node, text, nullptr);
    }

    void category(Node *node, const std::string &text) {
        literal_.change_category(node, text, TREE_CHECKED);
        change_cat(node, text, nullptr);
    }

    void undo(Node *node, bool all) {
        if (all) {
            literal_.undo_all(node, TREE_CHECKED);
            undo_all(node);
        } else if (node->changed || node->undo_sem) {
            literal_.change_tag(node, std::string(text_of(node->undo_sem)), TREE_CHECKED);
            undo_last(node, nullptr);
        }
    }

    void check(int t, bool checked) {
        literal_.set_checked(corpus_.tree(t).root, checked);
        set_checked(t, checked);
    }

    void save() {
        for (const TreeEntry &tree : forest)
            for_each_in_subtree(tree.root, [this](Node *node) { literal_.reset(node); });
        reset_edits();
    }

    Corpus corpus_;
    RandomEdits edits_;
    LiteralTables literal_;
};

void work(unsigned seed, int vocabulary, int steps, int between) {
    Twins twins(seed, vocabulary);
    if (between < steps) twins.compare();
    for (int i = 1; i <= steps && !testing::Test::HasFatalFailure(); ++i) {
        twins.step();
        if (i % between == 0) twins.compare();
    }
}

TEST(order, right_after_reading) {
    for (unsigned seed = 0; seed < 20; ++seed) work(seed, 4, 0, -1);
}

TEST(order, when_it_is_asked_for_after_every_change) {
    for (unsigned seed = 20; seed < 26; ++seed) work(seed, 4, 100, 1);
}

TEST(order, when_it_is_first_asked_for_after_many_changes) {
    for (unsigned seed = 30; seed < 40; ++seed) work(seed, 4, 200, 200);
}

TEST(order, when_it_is_asked_for_now_and_then) {
    for (unsigned seed = 50; seed < 54; ++seed) work(seed, 15, 300, 60);
}

}  // namespace
}  // namespace brindle::test
