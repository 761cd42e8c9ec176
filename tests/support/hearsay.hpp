#pragma once
// A listener that proves that listeners are told everything, and told it truly.
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "corpus/writetrees.hpp"
#include "edit/change.hpp"
#include "model/traversal.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {

// Knows the corpus by hearsay: from what it was at first and the changes that were told.
class Hearsay : public ChangeListener {
  public:
    explicit Hearsay(Corpus &corpus) : corpus_(corpus) {
        learn(corpus);
        corpus.listeners.push_back(this);
    }
    ~Hearsay() override { std::erase(corpus_.listeners, this); }
    Hearsay(const Hearsay &) = delete;
    Hearsay &operator=(const Hearsay &) = delete;

    void changed(const Corpus &corpus, const Change &change) override {
        ++heard;
        if (change.kind == Change::Kind::check_mark) {
            EXPECT_EQ(marks[change.tree], change.before);
            marks[change.tree] = change.after;
            return;
        }
        EXPECT_EQ(change.node->tree(), change.tree);
        if (change.kind == Change::Kind::subtree) {
            for_each_in_subtree(const_cast<Node *>(change.replaced), [&](const Node *n) {
                EXPECT_EQ(labels[n], labels_of(n)) << "the old nodes are still there";
                labels.erase(n);
            });
            const TestCorpus after("(" + std::string(change.after) + ")");
            EXPECT_EQ(write_tree_to_editor(change.node), write_tree_to_editor(after.at(".")));
            for_each_in_subtree(change.node, [&](const Node *n) { labels[n] = labels_of(n); });
            return;
        }
        const bool is_tag = change.kind == Change::Kind::tag;
        auto &[category, tag] = labels.at(change.node);
        EXPECT_EQ(is_tag ? tag : category, change.before);
        (is_tag ? tag : category) = change.after;
        EXPECT_EQ(labels_of(change.node), std::pair(category, tag));
        EXPECT_EQ(corpus.tree(change.tree).checked, marks[change.tree] == "*");
    }

    // Nothing is known wrongly, and nothing is unknown.
    void expect_true_of(Corpus &corpus) {
        const auto known_labels = labels;
        const auto known_marks = marks;
        learn(corpus);
        EXPECT_TRUE(labels == known_labels);
        EXPECT_EQ(marks, known_marks);
    }

    int heard = 0;

  private:
    using Labels = std::pair<std::string, std::string>;
    static Labels labels_of(const Node *n) {
        return {std::string(text_of(n->syn())), std::string(text_of(n->sem()))};
    }

    void learn(Corpus &corpus) {
        labels.clear();
        for (int t = 0; t < corpus.amount(); ++t) {
            marks[t] = corpus.tree(t).checked ? "*" : "";
            for_each_in_subtree(corpus.tree(t).root, [&](const Node *n) { labels[n] = labels_of(n); });
        }
    }

    Corpus &corpus_;
    std::map<const Node *, Labels> labels;
    std::map<int, std::string> marks;
};

}  // namespace brindle::test
