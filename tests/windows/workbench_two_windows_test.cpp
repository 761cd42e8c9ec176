// Two tree windows on one corpus: each has its own tree, font and flags, and every command changes the tree
// that it was given for, counted under that tree's own flag.
#include <gtest/gtest.h>

#include <algorithm>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

const std::string locked = "A syntax editor is active on this tree,";

class TwoWindows : public testing::Test {
  protected:
    void SetUp() override {
        a = w.edit();
        b = w.edit();
    }

    Workbench &in(const std::string &window) {
        w.take(window);
        return w;
    }
    void press(const std::string &window, const std::string &button) { in(window).press(button); }

    // How far the topmost frame is from the middle of a node's category, in pixels.
    int distance_to_notice(const std::string &window, const std::string &path) {
        const UiMap &map = w.gui().map();
        const Area notice = map.frames.back().area;
        const Area node = map.node(path, window)->area;
        const int across = std::max({notice.x - node.middle_x(), node.middle_x() - notice.x - notice.w, 0});
        const int down = std::max({notice.y - node.middle_y(), node.middle_y() - notice.y - notice.h, 0});
        return across + down;
    }

    int level_height(const std::string &window) {
        return in(window).node("2.2")->area.y - w.node("2")->area.y;
    }

    Workbench w;
    std::string a, b;
};

TEST_F(TwoWindows, have_fonts_sizes_and_hit_tests_of_their_own) {
    in(a).prefer({"font-size", "large"});
    in(b).prefer({"font-size", "small"});
    in(b).prefer({"punctuation", "show it"});
    EXPECT_EQ(level_height(a), 88);
    EXPECT_EQ(level_height(b), 48);
    EXPECT_EQ(in(a).node("3"), nullptr);
    // On the same tree each click is looked up in the layout of the window that got it.
    for (const char *path : {"2.2.2.1", "1.1", "2.2.1"}) {
        in(a).click_node(path);
        EXPECT_EQ(in(b).selected(), path);
        in(b).click_node(path);
        EXPECT_EQ(in(a).selected(), "");
    }
    in(b).click_node("3");
    EXPECT_EQ(in(b).selected(), "3");
    EXPECT_EQ(in(a).selected(), "");
    for (const std::string &window : {b, a, b}) {
        in(window).click_node("2.2.2", 2);
        EXPECT_LT(distance_to_notice(window, "2.2.2"), 60);
        w.gui().press("Ok");
    }
}

TEST_F(TwoWindows, tags_are_counted_under_the_flag_of_their_own_tree) {
    press(b, "Next");
    in(a).type_tag("1", "in_checked");
    in(b).type_tag("1", "in_unchecked");
    EXPECT_EQ(in(a).rows_offered("1"), "(unlabeled) mary in_checked");
    EXPECT_EQ(in(b).rows_offered("1"), "(unlabeled) mary in_checked");
    // The editor was opened on a tree that is not in view any more.
    in(a).choose_at("1", {"edit"});
    w.gui().wait_focus("NP");
    press(a, "Next");
    w.gui().fill("Semantic tag:", "typed_late", "NP");
    w.gui().key("Return");
    w.gui().wait_gone("NP");
    EXPECT_EQ(in(a).tag("1"), "in_unchecked");
    EXPECT_EQ(in(a).rows_offered("1"), "(unlabeled) mary typed_late");
    in(b).choose_at("1", {"clear", "this tree"});
    EXPECT_EQ(in(a).tag("1"), "") << "both show the second tree";
    in(b).choose_at("1", {"undo", "undo all edits", "on this tree"});
    press(a, "Previous");
    EXPECT_EQ(w.tag("1"), "typed_late") << "another tree is not touched";
    in(b).gui().click_item("checkbox", "Check:", b);
    EXPECT_EQ(in(a).rows_offered("1"), "(unlabeled) mary typed_late");
    in(a).choose_at("1", {"undo", "undo all edits", "on this node"});
    press(b, "Save");
    w.wait_footer("small.trees saved");
    std::string expected = small_corpus;
    expected.replace(expected.find("tree #2\n"), 8, "tree #2\n*\n");
    EXPECT_EQ(w.file("small.trees"), expected);
}

TEST_F(TwoWindows, show_what_the_other_does_to_the_same_tree) {
    w.gui().click_item("checkbox", "Check:", b);
    EXPECT_EQ(in(a).value("checkbox", "Check:"), "0");
    in(a).type_tag("1", "jack");
    EXPECT_EQ(in(b).tag("1"), "jack");
    EXPECT_EQ(in(b).rows_offered("1"), "mary");
    // An editor that is answered after its window has turned to another tree.
    in(a).choose_at("1", {"edit"});
    w.gui().wait_focus("NP");
    press(a, "Next");
    w.gui().fill("Semantic tag:", "j(", "NP");
    w.gui().key("Return");
    w.answer("Brackets in a semantic tag must balance");
    EXPECT_EQ(in(a).tree(), "1") << "the notice points at the node";
    in(a).choose_at("1", {"edit"});
    w.gui().wait_focus("NP");
    press(a, "Next");
    w.gui().fill("Semantic tag:", "joe", "NP");
    w.gui().key("Return");
    w.gui().wait_gone("NP");
    EXPECT_EQ(in(b).tag("1"), "joe");
    // A run in one window over the tree that the other shows.
    press(a, "Batch");
    w.gui().choose_option("Type of trees:", "Both", "Batch processing");
    w.gui().press("Undo all edits on tree", "Batch processing");
    EXPECT_EQ(in(b).tag("1"), "john");
    w.gui().press("Check tree", "Batch processing");
    EXPECT_EQ(in(b).value("checkbox", "Check:"), "1");
}

TEST_F(TwoWindows, selectors_and_copies_work_across_them) {
    press(b, "Next");
    in(b).choose_at("1", {"select"});
    w.gui().wait_frame("NP");
    press(b, "Previous");
    w.gui().click_row("mary", "NP");
    w.gui().press("Ok", "NP");
    EXPECT_EQ(in(b).tree(), "2") << "the window goes back to the tree of the list";
    EXPECT_EQ(w.tag("1"), "mary");
    EXPECT_EQ(in(a).tag("1"), "john");
    in(a).choose_at("2.2", {"copy"});
    EXPECT_NE(w.gui().footer(a), "");
    in(b).click_node("1");
    w.answer("mary", "Yes");
    EXPECT_EQ(in(a).tag("2.2"), "mary");
    in(a).wait_footer("");
    EXPECT_EQ(in(b).tree(), "2");
    EXPECT_EQ(in(a).rows_offered("2.2"), "mary") << "the copy counts in the checked tree";
    // The window that waits for a copy goes.
    in(b).choose_at("2", {"copy"});
    press(b, "Close");
    w.gui().wait_until("one tree window", [](const UiMap &map) { return map.frames.size() == 2; });
    in(a).click_node("1");
    EXPECT_EQ(in(a).selected(), "1");
}

TEST_F(TwoWindows, a_tree_in_a_syntax_editor_is_locked_in_both) {
    in(b).choose_at("2.2.2", {"edit"});
    w.gui().wait_focus("NP");
    for (int click = 0; click < 2; ++click) in(a).click_node("2.2");
    in(a).choose_at("2.2", {"edit syntax"});
    w.answer("A window is active on this node;");
    w.gui().press("Cancel", "NP");
    in(a).choose_at("2.2", {"edit syntax"});
    w.gui().wait_frame("Syntax Editor");
    for (const std::string &window : {a, b}) {
        w.gui().raise(window);  // the editor lies on the nodes of the other
        for (const unsigned button : {1U, 2U, 3U}) {
            in(window).click_node("1", button);
            w.answer(locked);
        }
    }
    EXPECT_EQ(in(b).selected(), "2.2 2.2.1 2.2.2 2.2.2.1 2.2.2.2");
    press(b, "Next");
    in(b).click_node("1");
    EXPECT_EQ(in(b).selected(), "1") << "other trees are free";
    // The lock moves with the editor of the window, and goes with the window.
    press(a, "Next");
    press(a, "Next");
    for (int click = 0; click < 2; ++click) in(a).click_node("2");
    in(a).choose_at("2", {"edit syntax"});
    press(b, "Previous");
    in(b).click_node("2.2");
    EXPECT_EQ(in(b).selected(), "");
    press(b, "Next");
    press(b, "Next");
    in(b).click_node("1");
    w.answer(locked);
    press(a, "Close");
    w.gui().wait_gone("Syntax Editor");
    in(b).click_node("2");
    EXPECT_EQ(in(b).selected(), "");
}

}  // namespace
}  // namespace brindle::windows
