// Undo and redo of whole commands: whatever is done and taken back in whatever order, what was there is
// there.
#include "edit/history.hpp"

#include <gtest/gtest.h>

#include <map>

#include "model/traversal.hpp"
#include "propose/propose.hpp"
#include "propose/run.hpp"
#include "stats/verify.hpp"
#include "support/files.hpp"
#include "support/hearsay.hpp"
#include "support/random_edits.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

std::string trees_and_selections(const Corpus &corpus) {
    std::string text = saved(corpus);
    for (const Tree &tree : corpus.trees)
        for_each_in_subtree(tree.root, [&](const Node *node) { text += node->selected() ? 's' : '-'; });
    return text;
}

// What the undo of the node menu knows, and the count of unsaved changes.
std::string undo_state(const Corpus &corpus) {
    std::string text = std::to_string(corpus.unsaved_changes);
    for (const Tree &tree : corpus.trees)
        for_each_in_subtree(tree.root, [&](const Node *node) {
            const auto [last, original] = corpus.undo_of(node);
            text.append(node->changed() ? "\n+" : "\n-")
                .append(text_of(last))
                .append("|")
                .append(text_of(original));
        });
    return text;
}

// Commands of every kind, each a step or nothing, beside those of RandomEdits.
void add_commands(RandomEdits &edits, Corpus &corpus) {
    const auto some_trees = [&] {
        std::vector<int> trees;
        for (int n = 0; n < 3; ++n) trees.push_back(edits.random().below(corpus.amount()));
        return trees;
    };
    edits.add({"save again", 2, [&](Node *) { corpus.forget_edits(); }});
    edits.add({"another subtree", 3,
               [&](Node *node) { EXPECT_FALSE(replace_subtree(corpus, node, "(N0|s1 t0/w1 (N1 |x))")); }});
    edits.add({"replace all", 1, [&](Node *node) {
                   Label *const tag = node->sem();
                   const std::string with = edits.random_tag();
                   for (const Tree &tree : corpus.trees)
                       for_each_in_subtree(tree.root, [&](Node *n) {
                           if (n->sem() == tag) set_tag(corpus, n, with);
                       });
               }});
    edits.add({"propose", 3, [&](Node *node) { propose_tree(corpus, node->tree()); }});
    for (int (*work)(Run &) : {check_all, uncheck_all, propose_all, undo_edits_all})
        edits.add({"run", 1, [&, work, some_trees](Node *) {
                       Run run(corpus, some_trees());
                       work(run);
                   }});
}

// A corpus with a history, and what it was like after each step.
class Timeline {
  public:
    Timeline(const std::string &text, unsigned seed)
        : corpus_(text), history_(corpus_), heard_(corpus_), edits_(corpus_, seed, 4), random_(seed) {
        add_commands(edits_, corpus_);
        states_.push_back(trees_and_selections(corpus_));
        undo_states_[0] = undo_state(corpus_);
    }

    void act() {
        if (random_.chance(0.5)) return command();
        for (int n = random_.below(5); n >= 0; --n) random_.chance(0.55) ? undo() : redo();
    }

    void finish() {
        while (position_ > 0) undo();
        while (position_ + 1 < states_.size()) redo();
        while (position_ > 0) undo();
    }

  private:
    // One piece of work or several, saves among them.
    void command() {
        const std::string name = std::to_string(++commands_);
        const std::uint32_t saves = corpus_.saves;
        {
            const HistoryStep step(corpus_, name);
            for (int n = random_.chance(0.3) ? 4 : 1; n > 0; --n) edits_.step();
        }
        if (corpus_.saves != saves) undo_states_.clear();
        const auto latest = history_.next_undo();
        if (latest && latest->name == name) {
            states_.resize(++position_);
            states_.push_back(trees_and_selections(corpus_));
            undo_states_.erase(undo_states_.lower_bound(position_), undo_states_.end());
        }
        expect_position(false);
    }

    void undo() { go(history_.undo(), position_ > 0, -1); }
    void redo() { go(history_.redo(), position_ + 1 < states_.size(), 1); }

    void go(const std::optional<StepInfo> &step, bool is_possible, int by) {
        ASSERT_EQ(step.has_value(), is_possible);
        if (!step) return;
        position_ += static_cast<std::size_t>(by);
        expect_position(true);
    }

    // Since the latest save undo and redo bring back each node's undo state, too; what was last seen before
    // it differs from the file now.
    void expect_position(bool went) {
        ASSERT_EQ(verify(corpus_), "");
        heard_.expect_true_of(corpus_);
        ASSERT_EQ(trees_and_selections(corpus_), states_[position_]) << edits_.log.back();
        const auto [known, is_new] = undo_states_.try_emplace(position_, undo_state(corpus_));
        ASSERT_EQ(known->second, undo_state(corpus_)) << edits_.log.back();
        ASSERT_GE(corpus_.unsaved_changes, 0);
        (went && is_new ? across_saves_ : within_saves_) += went;
    }

    TestCorpus corpus_;
    History history_;
    Hearsay heard_;
    RandomEdits edits_;
    Random random_;
    std::size_t position_ = 0;
    std::vector<std::string> states_;
    std::map<std::size_t, std::string> undo_states_;  // those seen since the latest save
    int commands_ = 0;

  public:
    int across_saves_ = 0, within_saves_ = 0;
};

// Returns how often it came to a step for the first time since a save.
int expect_exact(const std::string &text, unsigned seed, int actions) {
    Timeline timeline(text, seed);
    for (int n = 0; n < actions && !testing::Test::HasFailure(); ++n) timeline.act();
    if (!testing::Test::HasFailure()) timeline.finish();
    EXPECT_GT(timeline.within_saves_, actions / 4) << "seed " << seed;
    return timeline.across_saves_;
}

TEST(history, brings_back_what_was_there_after_whatever_happened) {
    int across_saves = 0;
    for (unsigned seed = 0; seed < 40 && !HasFailure(); ++seed)
        across_saves += expect_exact(random_corpus(seed, 6, 4), seed, 100);
    EXPECT_GT(across_saves, 500);
}

TEST(history, of_real_corpora) {
    for (const char *name : {"geo-formula.trees", "gum.trees"})
        if (const std::string text = shared_corpus(name); !text.empty())
            expect_exact(std::string(first_trees(text, 30)), 1, 60);
    expect_exact(example("travel.trees"), 2, 60);
}

// Undone and redone after each command, a corpus goes the way of one where nothing was ever undone; with the
// undo of the node menu and saves among the commands.
TEST(history, leaves_no_trace) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        const std::string text = random_corpus(seed, 6, 4);
        TestCorpus c(text), plain(text);
        History history(c);
        RandomEdits edits(c, seed, 4), plain_edits(plain, seed, 4);
        Random random(seed);
        for (int n = 0; n < 200; ++n) {
            edits.step();
            plain_edits.step();
            const int back = random.below(6);
            int undone = 0;
            while (undone < back && history.undo()) ++undone;
            while (history.redo()) --undone;
            ASSERT_EQ(undone, 0);
            ASSERT_EQ(saved(c), saved(plain)) << edits.log.back();
            ASSERT_EQ(undo_state(c), undo_state(plain)) << edits.log.back();
        }
    }
}

TEST(history, a_step_is_a_command_and_says_what_it_was) {
    TestCorpus c("* ( (S NN|a/cats) )\n( (S NN/dogs) )");
    History history(c);
    EXPECT_FALSE(history.undo() || history.redo());
    c.tag("1", "b", 1);
    c.category("1", "N");
    set_checked(c, 0, false);
    replace_subtree(c, c.at(".", 1), "(X Y/y)");
    {
        const HistoryStep outer(c, "Typed");
        c.tag(".", "x", 1);
        const HistoryStep inner(c, "Other");
        c.tag("1", "y", 1);
        c.tag("1", "z", 0);
        c.tag(".", "z", 1);
        EXPECT_FALSE(history.undo()) << "it goes on";
    }
    { const HistoryStep nothing(c, "Nothing"); }
    const auto typed = history.undo();
    EXPECT_TRUE(typed->name == "Typed" && typed->tree == 1 && typed->changes == 4 && typed->trees == 2);
    EXPECT_EQ(c.text(1), "(X Y/y)");
    for (const char *name : {"Bracketing, tree 2", "Check mark, tree 1", "Category, tree 1", "Tag, tree 2"})
        EXPECT_EQ(history.undo()->name, name);
    EXPECT_EQ(saved(c), saved(TestCorpus("* ( (S NN|a/cats) )\n( (S NN/dogs) )")));
    { const HistoryStep nothing(c, "Nothing"); }
    EXPECT_EQ(history.next_redo()->name, "Tag, tree 2") << "nothing has happened";
    EXPECT_EQ(history.redo()->name, "Tag, tree 2");
    c.tag("1", "new");
    EXPECT_FALSE(history.redo());
    EXPECT_EQ(history.next_undo()->name, "Tag, tree 1");
}

TEST(history, replacing_a_checked_subtree_is_one_step) {
    TestCorpus c("* ( (S NN|a/cats) )");
    History history(c);
    c.tag("1", "b");
    replace_subtree(c, c.at("1"), "NN/dogs ");
    EXPECT_EQ(c.statistics->find("b", LabelKind::SEM), nullptr);
    EXPECT_EQ(history.undo()->changes, 2);
    EXPECT_TRUE(c.tree(0).checked);
    EXPECT_TRUE(undo_all(c, c.at("1"))) << "the node's own undo has come back with it";
    EXPECT_EQ(c.text(), "(S NN|a/cats)");
}

TEST(history, what_is_undone_after_a_save_is_unsaved) {
    TestCorpus c("( (S NN|a/cats VB/run) )");
    History history(c);
    c.tag("1", "b");
    c.category("2", "VBZ");
    replace_subtree(c, c.at("2"), "VP/run ");
    c.forget_edits();
    for (const int unsaved : {1, 2, 3}) EXPECT_TRUE(history.undo() && c.unsaved_changes == unsaved);
    EXPECT_TRUE(c.at("1")->changed());
    EXPECT_EQ(c.undo_of(c.at("1")).orig_sem->view(), "b") << "the tag that was saved";
    while (history.redo()) {
    }
    EXPECT_EQ(c.unsaved_changes, 0) << "this is what was saved";
    while (history.undo()) {
    }
    EXPECT_TRUE(undo_all(c, c.at("1")));
    EXPECT_EQ(c.text(), "(S NN|b/cats VB/run)");
    EXPECT_EQ(history.undo()->name, "Tag, tree 1");
    EXPECT_EQ(c.unsaved_changes, 3);
}

TEST(history, of_a_step_amid_which_was_saved_only_the_first_part_is_unsaved_when_undone) {
    TestCorpus c("( (S NN|a/cats VB|a/run) )");
    History history(c);
    {
        const HistoryStep step(c, "Run");
        c.tag("1", "b");
        c.forget_edits();
        c.tag("2", "b");
    }
    EXPECT_EQ(history.undo()->changes, 2);
    EXPECT_EQ(c.text(), "(S NN|a/cats VB|a/run)");
    EXPECT_TRUE(c.at("1")->changed() && !c.at("2")->changed());
    EXPECT_EQ(c.unsaved_changes, 1);
}

TEST(history, nodes_that_come_back_after_a_save_are_unchanged) {
    TestCorpus c("( (S NN|a/cats) )");
    History history(c);
    c.tag("1", "b");
    replace_subtree(c, c.at("1"), "VB/run ");
    c.forget_edits();
    history.undo();
    EXPECT_EQ(c.text(), "(S NN|b/cats)");
    EXPECT_FALSE(c.at("1")->changed() || undo_last(c, c.at("1")));
    EXPECT_EQ(c.unsaved_changes, 1);
}

TEST(history, a_proposal_goes_with_its_selections_and_leaves_those_made_by_hand) {
    TestCorpus c("* ( (S|s NN|a/cats) )\n( (S (X NN/cats) VB/run) )");
    History history(c);
    c.at(".", 1)->select(true);
    c.at("1.1", 1)->select(true);
    EXPECT_TRUE(propose_tree(c, 1));
    const std::string proposed = trees_and_selections(c);
    EXPECT_TRUE(c.at("1", 1)->selected() && !c.at("1.1", 1)->selected());
    c.at("2", 1)->select(true);
    EXPECT_EQ(history.undo()->name, "Propose, tree 2");
    EXPECT_TRUE(c.at("1.1", 1)->selected() && !c.at("1", 1)->selected() && c.at("2", 1)->selected());
    c.at("2", 1)->select(false);
    history.redo();
    EXPECT_EQ(trees_and_selections(c), proposed);
}

TEST(history, forgets_the_oldest_steps_when_memory_is_short) {
    TestCorpus c("( (S (NP NN/cats)) )");
    History history(c, 3000);
    std::vector<std::string> states;
    for (int n = 0; n < 500; ++n) {
        states.push_back(saved(c));
        const HistoryStep step(c, "Step");
        if (n % 7 == 0) c.tag(".", "t"), c.forget_edits();
        if (n % 5)
            c.tag(".", "t" + std::to_string(n));
        else
            replace_subtree(c, c.at("1"), "(NP A/a B/b C/" + std::to_string(n) + ")");
        EXPECT_LE(history.bytes(), 3000u);
    }
    int steps = 0;
    while (history.undo()) EXPECT_EQ(saved(c), states[states.size() - static_cast<std::size_t>(++steps)]);
    EXPECT_GT(steps, 10);
    EXPECT_EQ(history.dropped() + steps, 500);
    {
        const HistoryStep large(c, "Large");
        for (int n = 0; n < 1000; ++n) c.tag(".", "x"), c.tag(".", "y");
    }
    EXPECT_EQ(history.undo()->changes, 2000) << "the newest stays, however large";
}

// Nodes that were kept are used again when their step is forgotten.
TEST(history, keeps_no_nodes_of_forgotten_steps) {
    std::string wide = "(W";
    for (int i = 0; i < 10'000; ++i) wide += " W|w/w";
    TestCorpus c("( (S X/x) )");
    History history(c, 1'000'000);
    for (int n = 0; n < 100; ++n) {
        replace_subtree(c, c.at("1"), wide + ")");
        if (n % 2) history.undo();
    }
    EXPECT_LT(c.nodes.number_of(c.nodes.make()), 60'000u);
    EXPECT_LE(history.bytes(), 1'000'000u);
}

TEST(history, of_what_is_very_deep_and_very_wide) {
    std::string deep, wide = "(W";
    for (int i = 0; i < 300'000; ++i) deep += "(D|d ", wide += " W|w/w";
    TestCorpus c("( (S X/x) )");
    History history(c);
    replace_subtree(c, c.at("1"), deep + "E/e" + std::string(300'000, ')'));
    for_each_in_subtree(c.at("1"), [&](Node *node) { set_tag(c, node, "t"); });
    replace_subtree(c, c.at("1"), wide + ")");
    const std::string last = saved(c);
    while (history.undo()) {
    }
    EXPECT_EQ(c.text(), "(S X/x)");
    while (history.redo()) {
    }
    EXPECT_EQ(saved(c), last);
}

}  // namespace
}  // namespace brindle::test
