// Batch runs over many trees: a random selection, Abort and Control-C in the middle, Prolog children that
// end, hang or flood.
#include <gtest/gtest.h>

#include <memory>
#include <regex>

#include "propose/report.hpp"
#include "propose/selection.hpp"
#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

const std::string box = "Batch processing";
const std::string ready = "query:  ?-";
const std::string filter = "Filter root-nodes through prolog";

// A child that answers the start-up line with its prompt, then each query with what the shell words do.
std::string shell_child(const std::string &at_query) {
    return "sh -c 'read q; printf \"?- \"; n=0; while read q; do n=$((n+1)); " + at_query + "; done'";
}

const std::string answer = "printf \"begin message\\ntag_$n\\nend message\\n?- \"";

class Runs : public testing::Test {
  protected:
    void open(int copies, const std::string &prolog = "cat") {
        w = std::make_unique<Workbench>(many_trees(copies), "many.trees", std::vector<std::string>{}, prolog);
        window = w->edit();
        w->open_batch_box();
        gui().choose_option("Type of trees:", "Both", box);
    }
    Gui &gui() { return w->gui(); }

    static bool all_idle(const UiMap &map) {
        for (const ShownFrame &frame : map.frames)
            if (frame.busy) return false;
        return true;
    }

    // Waits until a run is at one of its trees, and says so.
    void wait_in_the_middle(const std::string &text) {
        const std::regex middle(text + "\\.\\.\\. \\d+ of \\d+");
        gui().wait_until("run under way", [&](const UiMap &map) {
            const ShownFrame *frame = map.frame(window);
            return frame && frame->busy && std::regex_match(frame->footer, middle);
        });
        EXPECT_FALSE(gui().active("button", "Propose an annotation", box));
        EXPECT_FALSE(gui().map().frame(box)->busy);
    }

    // Waits for the end of a run, after which everything is as before it.
    void wait_end() {
        // The footer is empty before a run's first tree, too.
        gui().wait_until("end of the run", [&](const UiMap &map) {
            const ShownFrame *frame = map.frame(window);
            return frame && frame->footer.empty() && all_idle(map);
        });
        EXPECT_TRUE(gui().active("button", "Propose an annotation", box));
        EXPECT_FALSE(gui().active("button", "Abort", box));
    }

    void wait_ready() {
        gui().wait_until("prompt", [](const UiMap &map) {
            const ShownItem *field = map.item("textfield", ready);
            return field && field->active;
        });
    }

    std::unique_ptr<Workbench> w;
    std::string window;
};

TEST_F(Runs, a_random_selection_is_proposed_evaluated_and_undone) {
    constexpr int copies = 200;
    open(copies);
    gui().choose_option("Type of trees:", "Only unchecked trees", box);
    EXPECT_EQ(gui().value("message", "200", box), "");
    gui().choose_option("Type of selection:", "Random selection", box);
    w->type_into_slider("#", "100");
    gui().fill("Seed:", "7", box);
    gui().press("Propose and evaluate results", box);
    gui().wait_focus("Save evaluation results in:");
    gui().fill("File name:", "report", "Save evaluation results in:");
    gui().key("Return");
    gui().wait_until("the report", [&](const UiMap &) { return !w->file("report").empty(); });
    wait_end();
    const int last = std::stoi(w->tree());
    gui().press("Undo all edits on tree", box);
    wait_end();
    gui().press("Save", window);
    w->wait_footer("many.trees saved");
    EXPECT_EQ(w->file("many.trees"), many_trees(copies));
    // The same without windows.
    const auto corpus = w->read("many.trees");
    const SelectionChoice choice{TreeTypes::unchecked, 1, 3 * copies, true, 100, 7};
    brindle::Run run(*corpus, select_trees(*corpus, choice));
    int reported = -1;
    EXPECT_EQ(w->file("report"), propose_and_evaluate(run, choice, reported));
    EXPECT_EQ(last, reported + 1);
}

TEST_F(Runs, abort_and_control_c_end_a_run_after_the_tree_in_hand) {
    constexpr int copies = 150000;  // so many that a person, or a test, is in time
    open(copies);
    gui().press("Propose an annotation", box);
    wait_in_the_middle("Proposing away");
    picture(*w, "run.png");
    gui().press("Abort", box);
    wait_end();
    const int first = std::stoi(w->tree());
    EXPECT_LT(first, 3 * copies);
    EXPECT_EQ(w->value("checkbox", "Check:"), "0");
    w->turn_to(first + 1);
    EXPECT_EQ(w->value("checkbox", "Check:"), first % 3 == 1 ? "0" : "1") << "it was not reached";
    // Control-C reaches the run from the box that has the keyboard, from the tree and from the main window.
    for (const std::string &keyboard : {box, std::string("Output window"), window}) {
        gui().press("Propose an annotation", box);
        wait_in_the_middle("Proposing away");
        if (keyboard == window) gui().raise(window);
        if (keyboard == "Output window") gui().raise("BRINDLE");
        gui().key("ctrl+c");
        wait_end();
        EXPECT_LT(std::stoi(w->tree()), 3 * copies);
    }
}

TEST_F(Runs, a_filter_run_ends_with_its_child) {
    open(4, shell_child("[ $n = 6 ] && kill -9 $$; " + answer));
    wait_ready();
    gui().press(filter, box);
    gui().wait_until("end of the child", [](const UiMap &map) {
        return map.frame("BRINDLE")->footer == "Prolog was ended by signal 9";
    });
    wait_end();
    EXPECT_EQ(w->tree(), "9") << "trees 2, 5, 8 ... have no tag at their roots";
    EXPECT_EQ(w->tag("."), "s(d1,d2)");
    picture(*w, "child_killed.png");
    gui().press("Previous", window);
    gui().press("Previous", window);
    EXPECT_EQ(w->tag("."), "tag_5");
    // Return in the query field starts another child.
    gui().fill(ready, "again.");
    gui().key("Return");
    w->answer("tag_1");
    wait_ready();
}

TEST_F(Runs, control_c_in_an_answer_ends_an_evaluation) {
    open(4, shell_child(answer));
    wait_ready();
    gui().press("Let prolog evaluate root-nodes", box);
    gui().wait_line("Notice", "tag_1");
    EXPECT_EQ(gui().footer(window), "Evaluating nodes... Press Ctrl-C to abort");
    w->answer("tag_1");
    gui().wait_line("Notice", "tag_2");
    EXPECT_EQ(w->tree(), "3");
    gui().key("ctrl+c");
    wait_end();
    wait_ready();
    EXPECT_EQ(gui().map().frame("Notice"), nullptr);
    EXPECT_EQ(w->tag("."), "s(d1,d2)") << "an evaluation changes no tag";
    // The next run begins at its beginning.
    gui().press(filter, box);
    wait_end();
    EXPECT_EQ(w->tree(), "12");
    EXPECT_EQ(w->tag("."), "tag_10");
}

TEST_F(Runs, a_child_that_never_answers_stops_nobody) {
    open(4, shell_child("[ $n -lt 4 ] && " + answer));
    wait_ready();
    gui().press(filter, box);
    gui().wait_until("busy Prolog", [&](const UiMap &map) {
        return map.item("textfield", "pending...") && map.frame(window)->busy;
    });
    gui().press("Abort", box);
    wait_end();
    gui().press(filter, box);
    w->answer("Cannot filter this tree, prolog is busy", "I Know");
    gui().press("Let prolog evaluate all nodes", box);
    w->answer("Cannot filter this tree, prolog is busy", "Please try to fix that");
    EXPECT_TRUE(all_idle(gui().map()));
    gui().press("Close", window);
    gui().wait_gone(window);
    gui().press("Quit");
    w->answer("are you sure you want to quit?", "Yes");
    EXPECT_EQ(gui().wait_exit(), 0);
}

TEST_F(Runs, a_flood_without_newlines_is_shown_and_leaves_the_windows_alive) {
    open(1, shell_child("head -c 10000001 /dev/zero | tr \"\\0\" x; printf \"the end\\n?- \""));
    wait_ready();
    gui().fill(ready, "flood.");
    gui().key("Return");
    gui().press("Next", window);
    EXPECT_EQ(w->tree(), "2");
    wait_ready();
    gui().wait_until("end of the flood", [](const UiMap &map) {
        std::string text;  // where a line is broken depends on how much of the flood was passed over
        for (const std::string &line : map.lines("BRINDLE")) text += line;
        return text.ends_with("xthe end");
    });
    gui().press("Previous", window);
    EXPECT_EQ(w->tree(), "1");
}

}  // namespace
}  // namespace brindle::windows
