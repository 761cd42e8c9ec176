// The workbench and SWI-Prolog on the example corpus: typed queries, evaluation, filtering, expansion, the
// LaTeX export.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "prolog/child_command.hpp"
#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

const std::string examples = BRINDLE_SOURCE_DIR "/examples/";
const std::string main_title = "BRINDLE";
const std::string ready = "query:  ?-";
const std::string expanded = "app(app(P^Q^list(P,Q),X^train(X)),app(Y^X^to(X,Y),lyon))";

std::string contents(const std::string &name) {
    std::ifstream in(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class WorkbenchProlog : public testing::Test {
  protected:
    void SetUp() override {
        if (!is_on_path("swipl")) GTEST_SKIP() << "SWI-Prolog is missing";
        w = std::make_unique<Workbench>(contents(examples + "travel.trees"), "travel.trees",
                                        std::vector<std::string>{}, "", examples + "travel.pl");
        gui().wait_line(main_title, "% travel.pl loaded");
        wait_ready();
    }

    Gui &gui() { return w->gui(); }

    void wait_ready() {
        gui().wait_until("prompt", [](const UiMap &map) {
            const ShownItem *field = map.item("textfield", ready);
            return field && field->active && field->value.empty();
        });
    }

    void wait_pending() {
        gui().wait_until("busy Prolog", [](const UiMap &map) { return map.item("textfield", "pending..."); });
    }

    void query(const std::string &text) {
        gui().fill(ready, text);
        gui().key("Return");
    }

    // Opens the first tree and selects all of it.
    void edit_whole_tree() {
        w->edit();
        gui().click_node(".");
        gui().click_node(".");
    }

    void set_predicate(const std::string &predicate) {
        w->choose_at(".", {"Evaluation predicate"});
        gui().wait_focus("Evaluation predicate");
        gui().fill("       Predicate:", predicate);
        gui().press("Ok", "Evaluation predicate");
        w->wait_footer("Evaluation predicate: " + (predicate.empty() ? "none" : predicate));
    }

    void wait_tag(const std::string &path, const std::string &tag) {
        gui().wait_until("tag " + tag, [&](const UiMap &map) {
            const ShownNode *node = map.node(path);
            return node && node->tag == tag;
        });
    }

    std::unique_ptr<Workbench> w;
};

TEST_F(WorkbenchProlog, answers_typed_queries) {
    query("X = a, member(Y, [b,c]).");
    gui().wait_line(main_title, "X = a");
    gui().wait_line(main_title, "Y = b");
    wait_ready();
    query("message('What time is it?').");
    w->answer("What time is it?");
    wait_ready();
    query("halt.");
    w->answer("Prolog terminated with status 0");
    w->answer("You just exited prolog.");
    wait_ready();
    query("Z is 6 * 7.");
    gui().wait_line(main_title, "Z = 42");
    gui().press("Quit");
    EXPECT_EQ(gui().wait_exit(), 0);
}

TEST_F(WorkbenchProlog, evaluates_the_selected_subtree) {
    edit_whole_tree();
    set_predicate("answer");
    w->choose_at(".", {"Evaluate subtree"});
    gui().wait_line(main_title, "train Paris-Lyon 17:15, 49 euros");
    wait_ready();
    set_predicate("reply");
    w->choose_at(".", {"Evaluate subtree"});
    w->answer("train Paris-Lyon 08:10, 75 euros");
    w->choose_at(".", {"Show expanded annotation"});
    w->answer(expanded + ".");
    set_predicate("");
    w->choose_at(".", {"Evaluation predicate"});
    EXPECT_EQ(gui().value("textfield", "       Predicate:"), "");
}

TEST_F(WorkbenchProlog, expands_annotations_and_filters_a_tag) {
    edit_whole_tree();
    set_predicate("normal");
    w->choose_at(".", {"Expand annotations"});
    wait_tag(".", expanded);
    EXPECT_EQ(w->tag("1"), "app(P^Q^list(P,Q),X^train(X))");
    EXPECT_EQ(w->tag("2.1.2"), "app(Y^X^to(X,Y),lyon)");
    gui().click_node(".");
    w->choose_at(".", {"filter"});
    wait_tag(".", "list(X^train(X),Y^to(Y,lyon))");
    wait_ready();
    w->choose_at(".", {"clear", "this node"});
    w->choose_at(".", {"filter"});
    w->answer("This node requires an annotation");
    w->choose_at(".", {"undo", "undo last edit"});
    EXPECT_EQ(w->tag("."), "list(X^train(X),Y^to(Y,lyon))");
    gui().press("Save");
    w->wait_footer("travel.trees saved");
    EXPECT_NE(w->file("travel.trees").find(" (SBARQ|list(X^train(X),Y^to(Y,lyon))\n"), std::string::npos);
}

TEST_F(WorkbenchProlog, asks_nothing_while_an_answer_is_awaited) {
    edit_whole_tree();
    query("read(X).");
    wait_pending();
    const std::string busy = "Cannot evaluate this subtree, prolog is busy";
    w->choose_at(".", {"Evaluate subtree"});
    w->answer(busy, "I Know");
    gui().click_node(".");
    w->choose_at(".", {"filter"});
    w->answer(busy, "Please try to fix that");
    gui().wait_line(main_title, "X = true");
    wait_ready();
    EXPECT_EQ(w->tag("."), "app(d1,d2)");
}

TEST_F(WorkbenchProlog, drives_batch_runs_on_the_roots) {
    edit_whole_tree();
    set_predicate("reply");
    w->open_batch_box();
    w->type_into_slider("To:    ", "2");
    gui().key("Return");
    gui().press("Expand all nodes");
    gui().press("Let prolog evaluate root-nodes");
    w->answer("train Paris-Lyon 08:10, 75 euros");
    w->answer("flight London-Oslo 19:00, 88 euros");
    wait_ready();
    EXPECT_TRUE(gui().active("button", "Let prolog evaluate root-nodes"));
}

TEST_F(WorkbenchProlog, filters_all_nodes_of_a_run) {
    edit_whole_tree();
    set_predicate("normal");
    w->open_batch_box();
    w->type_into_slider("To:    ", "2");
    gui().key("Return");
    gui().press("Expand all nodes");
    EXPECT_EQ(w->tree(), "2");
    gui().press("Filter all nodes through prolog");
    w->wait_footer("");
    wait_ready();
    EXPECT_EQ(w->tree(), "2");
    w->turn_to(1);
    EXPECT_EQ(w->tag("."), "list(X^train(X),Y^to(Y,lyon))");
    EXPECT_EQ(w->tag("1"), "X^list(Y^train(Y),X)");
    EXPECT_EQ(w->tag("2.1"), "X^to(X,lyon)");
    w->turn_to(3);
    EXPECT_EQ(w->tag("1"), "");
    EXPECT_EQ(w->tag("."), "ask(some(d3,X^true))") << "it is not in the range";
}

TEST_F(WorkbenchProlog, exports_to_latex) {
    edit_whole_tree();
    const auto export_to = [&](const std::string &name) {
        w->choose_at(".", {"Export to LaTeX"});
        gui().wait_focus("Tree to LaTeX");
        gui().fill("    File:", name);
        gui().key("Return");
    };
    export_to("tree.tex");
    w->wait_footer("tree.tex created");
    const std::string text = w->file("tree.tex");
    EXPECT_TRUE(text.starts_with("\\documentclass{article}\n"));
    EXPECT_NE(text.find("\\chunk{\\lexlabel{Lyon}}"), std::string::npos);
    EXPECT_NE(text.find("{(subtree of) tree nr: 1 in corpus travel.trees}"), std::string::npos);
    export_to("tree.tex");
    w->answer("exists, overwrite?", "No");
    gui().fill("    File:", "no/such/directory.tex");
    gui().press("Ok", "Tree to LaTeX");
    w->answer("cannot write to", "Bummer!");
    EXPECT_EQ(w->file("tree.tex"), text);
}

}  // namespace
}  // namespace brindle::windows
