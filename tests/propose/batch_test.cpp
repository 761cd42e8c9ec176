#include "propose/batch.hpp"

#include <gtest/gtest.h>

#include "model/path.hpp"
#include "model/request.hpp"
#include "propose/node_run.hpp"
#include "propose/selection_writer.hpp"
#include "support/corpus.hpp"
#include "support/files.hpp"
#include "support/recording_front_end.hpp"

namespace brindle::test {
namespace {

constexpr const char *three_trees =
    "* ( (S|s A|a/x) )\n"
    "* ( (S|t A|b/x) )\n"
    "( (S A/x) )\n";

struct Batch : testing::Test {
    Corpus c{three_trees};
    RecordingFrontEnd front;
    std::vector<int> taken;
    BatchRun run{nullptr, {0, 1, 2}, [this](int tree) { taken.push_back(tree); }};
    Batch() { begin_batch(); }
    ~Batch() override { end_batch(); }
};

TEST_F(Batch, dispatches_before_each_tree_and_tells_its_progress_after) {
    EXPECT_EQ(run_batch(run, [&](int tree) { front.log.push_back("work " + std::to_string(tree)); }), 2);
    EXPECT_EQ(front.log, (std::vector<std::string>{"dispatch", "work 0", "progress 1/3", "dispatch", "work 1",
                                                   "progress 2/3", "dispatch", "work 2", "progress 3/3"}));
    EXPECT_EQ(taken, run.trees);
    EXPECT_EQ(run_batch({}, [](int) { ADD_FAILURE(); }), -1);
}

TEST_F(Batch, abort_between_two_trees_ends_the_run) {
    front.on_dispatch = [&] {
        if (taken.size() == 2) end_batch();
    };
    EXPECT_EQ(uncheck_all(run), 1);
    EXPECT_FALSE(forest[0].checked || forest[1].checked);
    EXPECT_EQ(taken.size(), 2u);
    EXPECT_EQ(check_all(run), -1) << "no run goes on without BATCH";
}

TEST_F(Batch, a_run_begun_right_after_abort_is_not_taken_for_the_aborted_one) {
    front.on_dispatch = [&] {
        if (taken.size() != 1) return;
        end_batch();
        begin_batch();
    };
    EXPECT_EQ(uncheck_all(run), 0);
    EXPECT_TRUE(BATCH && forest[1].checked);
}

TEST_F(Batch, checks_and_unchecks) {
    check_all(run);
    EXPECT_EQ(sem("s")->checked_count, 1);
    EXPECT_TRUE(forest[2].checked);
    uncheck_all(run);
    EXPECT_EQ(sem("s")->checked_count, 0);
    EXPECT_FALSE(forest[0].checked);
}

TEST_F(Batch, proposes_each_tree_from_those_still_checked) {
    propose_all(run);
    EXPECT_EQ(c.text(0), "(S|t A|b/x)") << "its own annotation no longer counts, the second tree's does";
    EXPECT_EQ(c.text(1), "(S|NO_MATCH A|NO_MATCH/x)") << "nothing is checked any more";
    begin_batch();
    undo_edits_all(run);
    EXPECT_EQ(c.text(0), "(S|s A|a/x)");
    EXPECT_EQ(c.text(2), "(S A/x)");
    EXPECT_EQ(MODIFIED, 0);
}

TEST_F(Batch, expands_the_roots_that_have_a_formula) {
    std::vector<Node *> roots;
    EXPECT_EQ(expand_all(run,
                         [&](Node *root, TreeView *) {
                             roots.push_back(root);
                             BATCH = forest[1].root != root;  // an error at the second tree
                         }),
              1);
    EXPECT_EQ(roots, (std::vector<Node *>{forest[0].root, forest[1].root}));
}

TEST_F(Batch, writes_a_selection_in_its_order) {
    const Folder folder;
    run.trees = {2, 0};
    int last = 0;
    EXPECT_EQ(write_selection(run, folder.file("sel"), CorpusFormat::atis, {}, last).name, "");
    EXPECT_EQ(last, 0);
    EXPECT_EQ(contents(folder.path / "sel"),
              "\ntree #3\nitem #1\n\n(\n (S A/x))\n\ntree #1\nitem #2\n\n*\n(\n (S|s A|a/x))\n");
    EXPECT_EQ(write_selection(run, folder.file("sel.aug"), CorpusFormat::dop, {}, last).name, "");
    EXPECT_EQ(contents(folder.path / "sel.aug").substr(0, 15), "tree(sss,[tree(");
    EXPECT_EQ(MODIFIED, 0);
}

TEST_F(Batch, a_selection_aborted_is_the_trees_written_so_far) {
    const Folder folder;
    front.on_dispatch = [&] { BATCH = taken.empty(); };
    int last = -1;
    EXPECT_EQ(write_selection(run, folder.file("sel"), CorpusFormat::atis, {}, last).name, "");
    EXPECT_EQ(contents(folder.path / "sel"), "\ntree #1\nitem #1\n\n*\n(\n (S|s A|a/x))\n");
    EXPECT_EQ(write_selection(run, "no/such/folder", CorpusFormat::atis, {}, last).name, "no/such/folder");
    EXPECT_EQ(last, -1);
}

// A Prolog-driven run over a corpus, its events as text; whoever tests it plays Prolog.
struct Steps {
    std::string log;
    bool can_send = true;
    NodeRun::Hooks hooks() {
        return {[this](int tree) { log += "tree " + std::to_string(tree) + " "; },
                [this](Node *node) {
                    log += path_of(node) + (FILTER_NODE == node ? "f " : EVAL_NODE == node ? "e " : "? ");
                    return can_send;
                },
                [this](int tree) { log += "end " + std::to_string(tree); }};
    }
    // All of a run.
    std::string all(NodeRunKind kind, std::vector<int> trees) {
        begin_batch();
        NodeRun run(kind, std::move(trees), nullptr, hooks());
        run.start();
        for (int i = 0; i < 100 && !run.ended(); ++i) run.go_on();
        run.go_on();
        end_batch();
        return log;
    }
};

constexpr const char *tagged =
    "( (S|s (NP A|a/x B/y) (VP|v C|c/z)) )\n"
    "( (S (NP A/x)) )\n"
    "( (S|s) )\n";

TEST(NodeRun, asks_about_every_tagged_node_in_document_order) {
    const Corpus c(tagged);
    EXPECT_EQ(Steps().all(NodeRunKind::filter, {0, 1, 2}), "tree 0 .f 1.1f 2f 2.1f tree 1 tree 2 .f end 2");
    EXPECT_EQ(FILTER_NODE, nullptr);
}

TEST(NodeRun, asks_about_roots_alone_if_told_so) {
    const Corpus c(tagged);
    ROOT_ONLY = true;
    EXPECT_EQ(Steps().all(NodeRunKind::evaluate, {0, 1, 2}), "tree 0 .e tree 1 tree 2 .e end 2");
    EXPECT_FALSE(ROOT_ONLY) << "the end of a run clears it";
}

TEST(NodeRun, ends_at_once_without_trees_or_tags_or_prolog) {
    const Corpus c(tagged);
    EXPECT_EQ(Steps().all(NodeRunKind::filter, {}), "end -1");
    EXPECT_EQ(Steps().all(NodeRunKind::filter, {1}), "tree 1 end 1");
    Steps deaf;
    deaf.can_send = false;
    EXPECT_EQ(deaf.all(NodeRunKind::filter, {0, 2}), "tree 0 .f end 0");
}

TEST(NodeRun, ends_when_the_batch_is_stopped) {
    const Corpus c(tagged);
    Steps steps;
    begin_batch();
    NodeRun run(NodeRunKind::filter, {0, 2}, nullptr, steps.hooks());
    run.start();
    end_batch();
    run.go_on();
    EXPECT_EQ(steps.log, "tree 0 .f end 0");
}

}  // namespace
}  // namespace brindle::test
