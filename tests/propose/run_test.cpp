#include "propose/run.hpp"

#include <gtest/gtest.h>

#include "model/path.hpp"
#include "propose/node_run.hpp"
#include "propose/selection_writer.hpp"
#include "support/files.hpp"
#include "support/test_corpus.hpp"

namespace brindle::test {
namespace {

using TreeRun = brindle::Run;  // the test class has a private member of that name

constexpr const char *three_trees =
    "* ( (S|s A|a/x) )\n"
    "* ( (S|t A|b/x) )\n"
    "( (S A/x) )\n";

struct Runs : testing::Test {
    TestCorpus c{three_trees};
    std::vector<int> taken;
    std::function<void(TreeRun &)> on_dispatch = [](TreeRun &) {};

    // Works on a run of these trees; its hooks call on_dispatch and note the trees taken.
    template <class Work>
    int run(std::vector<int> trees, Work &&work) {
        taken.clear();
        TreeRun *current = nullptr;
        RunHooks hooks;
        hooks.dispatch = [&] { on_dispatch(*current); };
        hooks.take = [&](int tree) { taken.push_back(tree); };
        TreeRun run(c, std::move(trees), std::move(hooks));
        current = &run;
        return work(run);
    }
};

TEST_F(Runs, dispatch_before_each_tree_and_tell_their_progress_after) {
    std::vector<std::string> log;
    TreeRun run(c, {2, 0},
                {[&] { log.emplace_back("dispatch"); },
                 [&](int tree) { log.push_back("take " + std::to_string(tree)); },
                 [&](int n, int m) { log.push_back(std::to_string(n) + "/" + std::to_string(m)); }});
    EXPECT_EQ(run.for_each_tree([&](int tree) { log.push_back("work " + std::to_string(tree)); }), 0);
    EXPECT_EQ(log, (std::vector<std::string>{"dispatch", "take 2", "work 2", "1/2", "dispatch", "take 0",
                                             "work 0", "2/2"}));
    TreeRun nothing(c, {});
    EXPECT_EQ(nothing.for_each_tree([](int) { ADD_FAILURE(); }), -1);
    TreeRun silent(c, {1});
    EXPECT_EQ(silent.for_each_tree([](int) {}), 1);
}

TEST_F(Runs, end_when_they_are_stopped_and_no_other_run_with_them) {
    TreeRun other(c, {0, 1, 2});
    on_dispatch = [&](TreeRun &run) {
        if (taken.size() == 2) run.stop();
    };
    EXPECT_EQ(run({0, 1, 2}, uncheck_all), 1);
    EXPECT_FALSE(c.tree(0).checked || c.tree(1).checked);
    EXPECT_EQ(taken.size(), 2u);
    EXPECT_EQ(check_all(other), 2);
    other.stop();
    EXPECT_EQ(uncheck_all(other), -1);
    EXPECT_TRUE(c.tree(0).checked);
}

TEST_F(Runs, check_and_uncheck) {
    run({0, 1, 2}, check_all);
    EXPECT_EQ(c.sem("s")->checked_count, 1);
    EXPECT_TRUE(c.tree(2).checked);
    run({0, 1, 2}, uncheck_all);
    EXPECT_EQ(c.sem("s")->checked_count, 0);
    EXPECT_FALSE(c.tree(0).checked);
}

TEST_F(Runs, propose_each_tree_from_those_still_checked) {
    run({0, 1, 2}, propose_all);
    EXPECT_EQ(c.text(0), "(S|t A|b/x)") << "its own annotation no longer counts, the second tree's does";
    EXPECT_EQ(c.text(1), "(S|NO_MATCH A|NO_MATCH/x)") << "nothing is checked any more";
    run({0, 1, 2}, undo_edits_all);
    EXPECT_EQ(c.text(0), "(S|s A|a/x)");
    EXPECT_EQ(c.text(2), "(S A/x)");
    EXPECT_EQ(c.unsaved_changes, 0);
}

TEST_F(Runs, write_a_selection_in_its_order) {
    const Folder folder;
    int last = 0;
    const auto write = [&](const char *name, CorpusFormat format) {
        return run({2, 0}, [&](TreeRun &r) {
            EXPECT_EQ(write_selection(r, folder.file(name), format, {}, last).name, "");
            return last;
        });
    };
    EXPECT_EQ(write("sel", CorpusFormat::atis), 0);
    EXPECT_EQ(contents(folder.path / "sel"),
              "\ntree #3\nitem #1\n\n(\n (S A/x))\n\ntree #1\nitem #2\n\n*\n(\n (S|s A|a/x))\n");
    write("sel.aug", CorpusFormat::dop);
    EXPECT_EQ(contents(folder.path / "sel.aug").substr(0, 15), "tree(sss,[tree(");
    EXPECT_EQ(c.unsaved_changes, 0);
}

TEST_F(Runs, a_selection_aborted_is_the_trees_written_so_far) {
    const Folder folder;
    on_dispatch = [&](TreeRun &run) {
        if (!taken.empty()) run.stop();
    };
    int last = -1;
    run({0, 1, 2}, [&](TreeRun &r) {
        EXPECT_EQ(write_selection(r, folder.file("sel"), CorpusFormat::atis, {}, last).name, "");
        return last;
    });
    EXPECT_EQ(last, 0);
    EXPECT_EQ(contents(folder.path / "sel"), "\ntree #1\nitem #1\n\n*\n(\n (S|s A|a/x))\n");
    run({0, 1, 2}, [&](TreeRun &r) {
        EXPECT_EQ(write_selection(r, "no/such/folder", CorpusFormat::atis, {}, last).name, "no/such/folder");
        return last;
    });
    EXPECT_EQ(last, -1);
}

// A Prolog-driven run over a corpus, its events as text; whoever tests it plays Prolog.
struct Steps {
    std::string log;
    bool can_send = true;
    NodeRun *run = nullptr;

    NodeRun::Hooks hooks() {
        NodeRun::Hooks hooks;
        hooks.begin_tree = [this](int tree) { log += "tree " + std::to_string(tree) + " "; };
        hooks.send_query = [this](Node *node) {
            log += path_of(node) + (run->awaited() == node ? " " : "? ");
            return can_send;
        };
        hooks.finish = [this](int tree) { log += "end " + std::to_string(tree); };
        return hooks;
    }
    // All of a run.
    std::string all(Corpus &corpus, std::vector<int> trees, bool roots_only = false) {
        NodeRun node_run(corpus, NodeRunKind::filter, std::move(trees), roots_only, hooks());
        run = &node_run;
        node_run.start();
        for (int i = 0; i < 100 && !node_run.ended(); ++i) node_run.go_on();
        node_run.go_on();
        EXPECT_EQ(node_run.awaited(), nullptr);
        return log;
    }
};

constexpr const char *tagged =
    "( (S|s (NP A|a/x B/y) (VP|v C|c/z)) )\n"
    "( (S (NP A/x)) )\n"
    "( (S|s) )\n";

TEST(NodeRuns, ask_about_every_tagged_node_in_document_order) {
    TestCorpus c(tagged);
    EXPECT_EQ(Steps().all(c, {0, 1, 2}), "tree 0 . 1.1 2 2.1 tree 1 tree 2 . end 2");
    EXPECT_EQ(Steps().all(c, {0, 1, 2}, true), "tree 0 . tree 1 tree 2 . end 2");
}

TEST(NodeRuns, end_at_once_without_trees_or_tags_or_prolog) {
    TestCorpus c(tagged);
    EXPECT_EQ(Steps().all(c, {}), "end -1");
    EXPECT_EQ(Steps().all(c, {1}), "tree 1 end 1");
    Steps deaf;
    deaf.can_send = false;
    EXPECT_EQ(deaf.all(c, {0, 2}), "tree 0 . end 0");
}

TEST(NodeRuns, say_nothing_more_when_they_are_stopped) {
    TestCorpus c(tagged);
    Steps steps;
    NodeRun run(c, NodeRunKind::filter, {0, 2}, false, steps.hooks());
    steps.run = &run;
    run.start();
    run.stop();
    run.go_on();
    run.take_message("late");
    EXPECT_EQ(steps.log, "tree 0 . ");
    EXPECT_EQ(c.at(".")->sem()->view(), "s");
}

}  // namespace
}  // namespace brindle::test
