// Finding, choosing and copying tags in windows: the search box, the annotation selectors, the copy mode.
#include <gtest/gtest.h>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

TEST(workbench_search, matches_are_shown_one_after_another) {
    Workbench w;
    w.edit();
    w.gui().press("Search");
    w.gui().wait_frame("Search & Replace");
    w.gui().fill("Syntactic: ", "NNP");
    picture(w, "search.png");
    w.gui().press("Search", "Search & Replace");
    w.answer("Found", "Again");
    w.answer("Found", "Again");
    EXPECT_EQ(w.tree(), "2");
    w.answer("Found", "Go back");
    EXPECT_EQ(w.tree(), "1");
    w.gui().fill("Semantic:", "nothing");
    w.gui().press("Search", "Search & Replace");
    w.answer("Semantic label \"nothing\" does not occur in this corpus");
    w.gui().fill("Syntactic: ", "");
    w.gui().fill("Semantic:", "");
    w.gui().press("Search", "Search & Replace");
    w.answer("You need to specify at least one field!");
}

TEST(workbench_search, tags_are_replaced_in_all_trees_under_their_own_flags) {
    Workbench w;
    w.edit();
    w.gui().press("Search");
    w.gui().wait_frame("Search & Replace");
    w.gui().fill("Semantic:", "d1");
    w.gui().fill("with:", "d3");
    w.gui().click_item("checkbox", "Complete labels only");
    w.gui().click_item("checkbox", "Prompt at replace");
    w.gui().press("Replace all");
    EXPECT_EQ(w.tree(), "3");
    EXPECT_EQ(w.tag("."), "s(d3,d2)");
    w.gui().fill("Semantic:", "d3");
    w.gui().fill("with:", "(");
    w.gui().press("Replace all");
    w.answer("Brackets in a semantic tag must balance");
    w.gui().press("Cancel", "Search & Replace");
    w.gui().press("Save");
    w.wait_footer("small.trees saved");
    const auto corpus = w.read("small.trees");
    EXPECT_EQ(corpus->statistics->find("s(d3,d2)", LabelKind::SEM)->checked_count, 2);
    EXPECT_EQ(corpus->statistics->find("s(d1,d2)", LabelKind::SEM), nullptr);
}

TEST(workbench_search, a_tag_is_chosen_from_those_of_the_category) {
    Workbench w;
    w.edit();
    w.gui().press("Next");
    w.choose_at("1", {"select"});
    w.gui().wait_frame("NP");
    picture(w, "selector.png");
    w.gui().key("Down");
    w.gui().key("Down");
    w.gui().key("Return");
    w.gui().wait_gone("NP");
    EXPECT_EQ(w.tag("1"), "mary") << "the rows are john, (unlabeled), mary";
    w.choose_at("1.1", {"select"});
    w.gui().wait_frame("NNP");
    w.gui().click_row("(unlabeled)", "NNP");
    w.gui().press("Where?", "NNP");
    w.gui().wait_frame("Search & Replace");
    EXPECT_EQ(w.gui().value("textfield", "Syntactic: "), "NNP");
    EXPECT_EQ(w.gui().value("textfield", "Semantic:"), "(unlabeled)");
}

TEST(workbench_search, a_tag_is_copied_into_another_tree) {
    Workbench w;
    w.edit();
    w.gui().press("Next");
    w.choose_at("2", {"copy"});
    w.gui().press("Previous");
    w.gui().click_node("2.1");
    w.answer("Copy this annotation?", "No");
    w.gui().click_node("2");
    w.answer("sleeps", "Yes");
    EXPECT_EQ(w.tree(), "2");
    EXPECT_EQ(w.tag("2"), "sleeps");
    w.wait_footer("");
}

}  // namespace
}  // namespace brindle::windows
