// The whole main job, as a person does it: open, turn pages, select, type tags, undo, check, save. What
// counts is the saved file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

// The corpus with a piece of its text replaced; the piece must occur.
std::string corpus_with(std::string text, const std::string &old, const std::string &replacement) {
    const auto at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return at == std::string::npos ? text : text.replace(at, old.size(), replacement);
}

TEST(workbench, tags_are_typed_undone_and_saved) {
    Workbench w;
    w.edit();
    w.type_tag("2.2", "on(d2)");
    EXPECT_EQ(w.tag("2.2"), "on(d2)");
    w.type_tag("2.2.2", "the table");
    EXPECT_EQ(w.tag("2.2.2"), "the_table");
    w.type_tag("1", "");
    EXPECT_EQ(w.tag("1"), "");
    w.choose_at("1", {"undo", "undo last edit"});
    EXPECT_EQ(w.tag("1"), "john");
    w.choose_at("1", {"undo", "undo last edit"});
    EXPECT_EQ(w.tag("1"), "");
    w.choose_at("1", {"undo", "undo all edits", "on this node"});
    EXPECT_EQ(w.tag("1"), "john");
    w.gui().press("Save");
    w.wait_footer("small.trees saved");
    std::string expected = corpus_with(small_corpus, "(PP IN", "(PP|on(d2) IN");
    expected = corpus_with(expected, "(NP DT", "(NP|the_table DT");
    EXPECT_EQ(w.file("small.trees"), expected);
    EXPECT_EQ(w.file("small.trees.bak"), small_corpus);
}

TEST(workbench, trees_are_cleared_and_restored_as_a_whole) {
    Workbench w;
    w.edit();
    w.choose_at("1", {"clear", "this node"});
    EXPECT_EQ(w.tag("1") + "," + w.tag("2"), ",sleeps");
    w.choose_at("2.1", {"clear", "this tree"});
    EXPECT_EQ(w.tag(".") + "," + w.tag("2"), ",");
    w.choose_at(".", {"undo", "undo all edits", "on this tree"});
    EXPECT_EQ(w.tag(".") + "," + w.tag("1") + "," + w.tag("2"), "s(d1,d2),john,sleeps");
    w.gui().press("Quit");
    EXPECT_EQ(w.gui().wait_exit(), 0) << "nothing is unsaved: nothing is asked";
}

TEST(workbench, a_tag_that_no_file_can_hold_is_refused_at_the_node) {
    Workbench w;
    w.edit();
    w.choose_at("2", {"edit"});
    w.gui().wait_focus("VP");
    w.gui().fill("Semantic tag:", "a/b");
    w.gui().press("Ok");
    w.answer("You cannot use '/' in a semantic tag; it is");
    EXPECT_EQ(w.tag("2"), "sleeps");
    w.type_tag("2", "d1)(");
    w.answer("Brackets in a semantic tag must balance");
    EXPECT_EQ(w.tag("2"), "sleeps");
    w.choose_at("2", {"edit"});
    EXPECT_EQ(w.gui().value("textfield", "Semantic tag:"), "sleeps");
    w.gui().fill("Semantic tag:", "rests");
    w.gui().press("Cancel");
    EXPECT_EQ(w.tag("2"), "sleeps");
}

TEST(workbench, checking_a_tree_is_saved) {
    Workbench w;
    w.edit();
    EXPECT_EQ(w.gui().value("checkbox", "Check:"), "1");
    w.gui().press("Next");
    EXPECT_EQ(w.gui().value("checkbox", "Check:"), "0");
    w.gui().click_item("checkbox", "Check:");
    w.gui().press("Previous");
    w.gui().click_item("checkbox", "Check:");
    w.gui().press("Save");
    w.wait_footer("small.trees saved");
    std::string expected = corpus_with(small_corpus, "tree #1\n*\n", "tree #1\n");
    expected = corpus_with(expected, "tree #2\n", "tree #2\n*\n");
    EXPECT_EQ(w.file("small.trees"), expected);
}

TEST(workbench, clicks_select_nodes_and_subtrees) {
    Workbench w;
    w.edit();
    w.gui().click_node("2.2");
    EXPECT_EQ(w.selected(), "2.2");
    w.gui().click_node("2.2");
    EXPECT_EQ(w.selected(), "2.2 2.2.1 2.2.2 2.2.2.1 2.2.2.2");
    w.gui().click_node("2.2");
    EXPECT_EQ(w.selected(), "");
}

TEST(workbench, pages_are_turned_by_buttons_keys_and_slider) {
    Workbench w;
    w.edit();
    EXPECT_FALSE(w.gui().active("button", "Previous"));
    w.gui().press("Next");
    EXPECT_EQ(w.tree(), "2");
    EXPECT_TRUE(w.gui().active("button", "Previous"));
    w.gui().key("plus");
    EXPECT_EQ(w.tree(), "3");
    EXPECT_FALSE(w.gui().active("button", "Next"));
    w.gui().key("plus");
    EXPECT_EQ(w.tree(), "3");
    w.gui().key("Next");  // Page Down
    EXPECT_EQ(w.tree(), "2");
    w.gui().key("Prior");  // Page Up
    EXPECT_EQ(w.tree(), "3");
    w.gui().key("minus");
    w.gui().key("minus");
    EXPECT_EQ(w.tree(), "1");
    w.turn_to(3);
    EXPECT_EQ(w.tag("2"), "walks");
    EXPECT_TRUE(w.gui().active("button", "Previous"));
    EXPECT_FALSE(w.gui().active("button", "Next"));
    const Area slider = w.gui().map().item("slider", "Tree #")->area;
    w.gui().click_at(slider.x + slider.w - 130, slider.middle_y());
    EXPECT_EQ(w.tree(), "2");
    w.gui().key("plus");  // after the slider the keys are the tree's again
    EXPECT_EQ(w.tree(), "3");
    constexpr unsigned wheel_down = 5;
    w.gui().click_at(slider.x - 10, slider.y - 20, wheel_down);  // on a button
    EXPECT_EQ(w.tree(), "3");
    w.gui().click_at(slider.x + slider.w - 130, slider.middle_y(), wheel_down);
    EXPECT_EQ(w.tree(), "2");
}

TEST(workbench, a_corpus_of_one_tree_has_no_page_items) {
    Workbench w("((S (NP NN/cats) (VP VB/sleep)))", "one.trees");
    w.edit();
    for (const char *label : {"Next", "Previous", "Search", "Batch"})
        EXPECT_EQ(w.gui().map().item("button", label), nullptr) << label;
    EXPECT_EQ(w.gui().map().item("slider", "Tree #"), nullptr);
    w.gui().key("plus");
    w.gui().key("Next");
    w.type_tag("2", "sleep");
    EXPECT_EQ(w.tag("2"), "sleep");
}

TEST(workbench, a_corpus_without_trees_says_so) {
    Workbench w("nothing but words\n", "empty.trees");
    const std::string window = w.edit();
    EXPECT_EQ(w.gui().footer("empty.trees"), "This corpus has no trees.");
    for (const char *key : {"plus", "minus", "Next", "Prior", "Left", "Down", "ctrl+c"}) w.gui().key(key);
    const Area canvas = w.gui().map().item("canvas", "")->area;
    for (const unsigned button : {1U, 2U}) w.gui().click_at(canvas.x + 30, canvas.y + 40, button);
    EXPECT_FALSE(w.gui().active("checkbox", "Check:"));
    w.press("Propose");
    w.prefer({"punctuation", "show it"});
    w.prefer({"font-style", "courier-bold"});
    w.prefer({"font-size", "large"});
    w.prefer({"tree-size"});
    w.gui().wait_focus("Tree Size Controls");
    w.gui().press("Apply");
    w.gui().press("Cancel", "Tree Size Controls");
    picture(w, "empty.png");
    w.press("Save");
    w.wait_footer("empty.trees saved");
    for (const char *format : {"DOP-format", "DOP-format2", "Info-format", "ATIS-format"}) {
        w.press("Save as");
        w.gui().wait_focus("Save corpus as");
        w.gui().choose_option("Write in:", format, "Save corpus as");
        if (format[0] == 'D') w.answer("Note: A filename ending in \".aug\" will augment");
        w.gui().fill("File name:", format, "Save corpus as");
        w.gui().key("Return");
        w.gui().wait_until("file", [&](const UiMap &) { return std::filesystem::exists(w.path(format)); });
        EXPECT_EQ(w.gui().map().frame("Notice"), nullptr);
    }
    EXPECT_EQ(w.file("ATIS-format"), w.file("empty.trees"));
    w.press("Close");
    w.gui().wait_gone(window);
    w.gui().press("Quit");
    EXPECT_EQ(w.gui().wait_exit(), 0);
}

TEST(workbench, a_file_changed_by_others_is_not_overwritten) {
    Workbench w;
    w.edit();
    w.type_tag("1", "jack");
    const auto later = std::filesystem::file_time_type::clock::now() + std::chrono::hours(1);
    std::filesystem::last_write_time(w.path("small.trees"), later);
    w.gui().press("Save");
    w.answer("Refuse to save to small.trees:");
    EXPECT_EQ(w.file("small.trees"), small_corpus);
    w.gui().press("Quit");
    w.answer("There are unsaved edits,", "No, cancel that");
    EXPECT_EQ(w.tag("1"), "jack");
    std::filesystem::remove(w.path("small.trees"));
    w.gui().press("Save");
    w.wait_footer("small.trees saved");
    EXPECT_EQ(w.file("small.trees"), corpus_with(small_corpus, "(NP|john", "(NP|jack"));
}

TEST(workbench, quitting_asks_for_unsaved_edits) {
    Workbench w;
    w.edit();
    w.type_tag("1", "jack");
    w.gui().press("Close");
    w.gui().wait_gone("small.trees");
    w.gui().close_window("BRINDLE");
    w.answer("are you sure you want to quit?", "Yes");
    EXPECT_EQ(w.gui().wait_exit(), 0);
    EXPECT_EQ(w.file("small.trees"), small_corpus);
}

TEST(workbench, saving_under_another_name_makes_it_the_corpus) {
    Workbench w;
    w.edit();
    w.type_tag("1", "jack");
    w.gui().press("Save as");
    w.gui().wait_focus("Save corpus as");
    w.gui().type("other.trees");
    w.gui().key("Return");
    w.gui().wait_frame("other.trees");
    EXPECT_EQ(w.file("other.trees"), corpus_with(small_corpus, "(NP|john", "(NP|jack"));
    EXPECT_EQ(w.file("small.trees"), small_corpus);
    EXPECT_NE(w.gui().map().item("button", "Edit other.trees"), nullptr);
    w.gui().press("Save as");
    w.gui().wait_focus("Save corpus as");
    w.gui().fill("File name:", "small.trees");
    w.gui().press("Ok");
    w.answer("exists, overwrite?", "No");
    w.gui().wait_focus("Save corpus as");
    EXPECT_EQ(w.gui().value("textfield", "File name:"), "small.trees");
    w.gui().press("Ok");
    w.answer("exists, overwrite?", "Cancel");
    w.gui().wait_gone("Save corpus as");
    EXPECT_EQ(w.file("small.trees"), small_corpus);
}

TEST(workbench, one_edit_in_a_large_corpus_changes_that_place_of_the_file_alone) {
    std::ifstream in(BRINDLE_SOURCE_DIR "/../shared/corpora/gum.trees", std::ios::binary);
    if (!in) GTEST_SKIP() << "the corpus is not there";
    const std::string corpus{std::istreambuf_iterator<char>(in), {}};
    Workbench w(corpus, "gum.trees");
    w.edit();
    w.turn_to(2000);
    w.type_tag(".", "here_it_is");
    w.gui().press("Save");
    w.wait_footer("gum.trees saved");
    const std::string saved = w.file("gum.trees");
    const auto [was, is] = std::mismatch(corpus.begin(), corpus.end(), saved.begin(), saved.end());
    const auto tree = std::count(corpus.begin(), was, '#');
    EXPECT_EQ(tree, 2000);
    const auto tag = saved.find("here_it_is");
    ASSERT_NE(tag, std::string::npos);
    // What follows the place of the edit is as it was.
    const auto same = std::mismatch(corpus.rbegin(), corpus.rend(), saved.rbegin(), saved.rend());
    EXPECT_GE(static_cast<std::size_t>(same.second - saved.rbegin()), saved.size() - tag - 10);
    EXPECT_LE(static_cast<std::size_t>(is - saved.begin()), tag);
}

}  // namespace
}  // namespace brindle::windows
