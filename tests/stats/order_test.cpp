// The order of every chain and list, after any sequence of work, is that of the literal procedure.
#include <gtest/gtest.h>

#include "edit/change.hpp"
#include "support/literal_tables.hpp"
#include "support/random_edits.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

// Works on the corpus and on its literal twin.
class Twins {
  public:
    Twins(unsigned seed, int vocabulary)
        : corpus_(random_corpus(seed, 12, vocabulary)), edits_(corpus_, seed, vocabulary) {}

    void compare() const { ASSERT_EQ(tables(corpus_), literal_.text()); }

    void step() {
        Node *node = edits_.random_node();
        const int kind = edits_.random().below(20);
        if (kind < 10) {
            const std::string tag = edits_.random().below(5) ? edits_.random_tag() : "";
            literal_.change_tag(node, tag);
            set_tag(corpus_, node, tag);
        } else if (kind < 13) {
            const std::string category = edits_.random_category(node);
            literal_.change_category(node, category);
            set_category(corpus_, node, category);
        } else if (kind < 14) {
            literal_.undo_all(node);
            undo_all(corpus_, node);
        } else if (kind < 15) {
            literal_.undo_last(node);
            undo_last(corpus_, node);
        } else if (kind < 19) {
            const bool checked = !corpus_.tree_of(node).checked;
            literal_.set_checked(node->tree(), checked);
            set_checked(corpus_, node->tree(), checked);
        } else {
            literal_.forget_edits();
            corpus_.forget_edits();
        }
    }

  private:
    TestCorpus corpus_;
    RandomEdits edits_;
    LiteralTables literal_{corpus_};
};

TEST(order, right_after_reading) {
    for (unsigned seed = 0; seed < 60; ++seed) Twins(seed, 2 + static_cast<int>(seed % 4)).compare();
}

TEST(order, after_every_change) {
    for (unsigned seed = 60; seed < 70; ++seed) {
        Twins twins(seed, seed % 2 ? 4 : 15);
        for (int i = 0; i < 100; ++i) {
            twins.step();
            ASSERT_NO_FATAL_FAILURE(twins.compare()) << "seed " << seed << ", step " << i;
        }
    }
}

}  // namespace
}  // namespace brindle::test
