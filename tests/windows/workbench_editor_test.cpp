// The syntax editor: a subtree as text, its errors, and texts of a size that nobody types.
#include <gtest/gtest.h>

#include <chrono>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

const std::string editor = "Syntax Editor";

// Selects the subtree and opens the editor on it, beside the tree window.
void edit_subtree(Workbench &w, const std::string &path) {
    w.click_node(path);
    w.click_node(path);
    w.choose_at(path, {"edit syntax"});
    w.gui().wait_focus(editor);
    w.gui().server().move_window(editor, 740, 20);
    w.gui().wait_until("editor beside the window",
                       [](const UiMap &map) { return map.frame(editor)->area.x >= 740; });
}

// "Ok" with a fault: the notice says so, and the insertion point is then on the line.
void expect_fault(Workbench &w, int line, const std::string &fault) {
    w.gui().press("Ok", editor);
    w.gui().wait_line("Notice", "Error on line " + std::to_string(line) + ":");
    w.answer(fault);
    w.gui().wait_focus(editor);
}

TEST(workbench_editor, faults_are_shown_on_their_lines_until_the_text_is_sound) {
    Workbench w;
    w.edit();
    edit_subtree(w, "2.2");
    picture(w, "editor.png");
    EXPECT_EQ(w.gui().lines(editor), (std::vector<std::string>{"", "(PP", "    IN/on", "    (NP",
                                                               "        DT/the", "        NN/table))"}));
    w.gui().key("ctrl+a");
    w.gui().type("(PP\nIN/\n(NP DT|x/the|y NN/chair)\n)\n(T U/v)");
    expect_fault(w, 5, "Unexpected start of new tree ('(')");
    w.gui().key("ctrl+shift+u");
    expect_fault(w, 2, "Lexical item expected");
    w.gui().key("ctrl+shift+u");
    w.gui().type("IN/under");
    expect_fault(w, 3, "Two semantic tags on one node.");
    picture(w, "editor_fault.png");
    w.gui().key("ctrl+shift+u");
    w.gui().type("(NP DT/a NN|thing/chair)");
    EXPECT_EQ(w.tag("2.2.2.2"), "") << "until now nothing has happened to the tree";
    EXPECT_EQ(w.value("checkbox", "Check:"), "1");
    w.gui().press("Ok", editor);
    w.gui().wait_gone(editor);
    EXPECT_EQ(w.tag("2.2.2.2"), "thing");
    EXPECT_EQ(w.value("checkbox", "Check:"), "0");
    w.press("Save");
    w.wait_footer("small.trees saved");
    std::string expected = small_corpus;
    expected.replace(expected.find("tree #1\n*\n"), 10, "tree #1\n");
    const std::string old = "(PP IN/on\n            (NP DT/the NN/table))";
    expected.replace(expected.find(old), old.size(), "(PP IN/under\n            (NP DT/a NN|thing/chair))");
    EXPECT_EQ(w.file("small.trees"), expected);
}

TEST(workbench_editor, help_undo_and_cancel) {
    Workbench w;
    w.edit();
    edit_subtree(w, "1");
    w.gui().press("Help", editor);
    picture(w, "editor_help.png");
    w.answer("M is Meta, C is Control, S is shift");
    w.gui().wait_focus(editor);
    w.gui().key("ctrl+a");
    w.gui().type("NN/x");
    w.gui().key("alt+u");
    EXPECT_EQ(w.gui().lines(editor), std::vector<std::string>{});
    w.gui().key("alt+u");
    const auto lines = w.gui().lines(editor);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], "(NP|john");
    w.gui().press("Cancel", editor);
    w.gui().wait_gone(editor);
    EXPECT_EQ(w.tag("1"), "john");
    w.click_node("2");
    EXPECT_EQ(w.selected(), "1 1.1 2") << "the tree is free again";
    w.choose_at("1.1", {"edit syntax"});  // a node without daughters: its category alone
    w.gui().wait_focus("NNP");
    picture(w, "category.png");
    w.gui().fill("Syntactic tag:", "N/P");
    w.gui().key("Return");
    w.answer("You cannot use '/' in a syntactic tag; it is");
    w.choose_at("1.1", {"edit syntax"});
    w.gui().wait_focus("NNP");
    w.gui().fill("Syntactic tag:", "NAME");
    w.gui().key("Return");
    EXPECT_EQ(w.node("1.1")->category, "NAME");
}

TEST(workbench_editor, answers_for_its_own_tree_and_text_whatever_the_window_has_turned_to) {
    Workbench w;
    w.edit();
    edit_subtree(w, "2");
    w.gui().key("ctrl+a");
    w.gui().type("(VP VBZ/");
    w.press("Next");
    w.gui().press("Ok", editor);
    w.answer("Unmatched '('");
    EXPECT_EQ(w.tree(), "2") << "nothing has happened that is to be shown";
    w.gui().press("Cancel", editor);
    w.gui().wait_gone(editor);
    w.press("Previous");
    w.choose_at("2", {"edit syntax"});
    w.gui().wait_focus(editor);
    w.gui().server().move_window(editor, 740, 20);
    w.press("Propose");
    w.answer("The annotation of the selected nodes");
    EXPECT_NE(w.tag("2"), "sleeps");
    w.press("Next");
    w.gui().press("Ok", editor);
    w.gui().wait_gone(editor);
    EXPECT_EQ(w.tree(), "1");
    EXPECT_EQ(w.tag("2"), "sleeps") << "what the editor has shown all the time";
}

// Doubles the text by copying and pasting it.
void double_text(Workbench &w, int times) {
    for (int n = 0; n < times; ++n) {
        for (const char *key : {"ctrl+a", "ctrl+c", "ctrl+End", "ctrl+v"}) w.gui().key(key);
    }
}

TEST(workbench_editor, a_megabyte_on_one_line_is_answered_in_seconds) {
    Workbench w;
    w.edit();
    edit_subtree(w, "1");
    const auto begin = std::chrono::steady_clock::now();
    w.gui().key("ctrl+a");
    w.gui().type("NN/x (NP DT/a NN/house) ");
    double_text(w, 15);  // 24 bytes each
    w.gui().press("Ok", editor);
    w.answer("Unexpected start of new tree ('(')");
    w.gui().wait_focus(editor);
    w.gui().key("ctrl+a");
    w.gui().type("NP/john ");
    w.gui().press("Ok", editor);
    w.gui().wait_gone(editor);
    EXPECT_EQ(w.node("1")->word, "john");
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(taken.count(), 20);
}

}  // namespace
}  // namespace brindle::windows
