// What a tree window shows, and how: fonts, sizes, punctuation, scrolling, the information displays.
#include <gtest/gtest.h>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

struct Place {
    int x, y;
};

// A node's centre and top relative to the root's.
Place below_root(Workbench &w, const std::string &path) {
    const UiMap &map = w.gui().map();
    const Area root = map.node(".")->area;
    const Area node = map.node(path)->area;
    return {node.middle_x() - root.middle_x(), node.y - root.y};
}

// A tree that is wider than a window, of words that are each alone on a branch.
std::string wide_corpus() {
    std::string corpus = "((S";
    for (int i = 0; i < 40; ++i) corpus += " (NP NN/word" + std::to_string(i) + ")";
    return corpus + "))\n((S NN/second))\n";
}

std::string scroll_value(Workbench &w, const std::string &scrollbar) {
    return w.gui().value("scrollbar", scrollbar);
}

TEST(workbench_display, levels_are_as_far_apart_as_the_sizes_say) {
    Workbench w;
    w.edit();
    EXPECT_EQ(below_root(w, "2.2").y, 2 * 71);
    w.prefer({"font-size", "small"});
    EXPECT_EQ(below_root(w, "2.2").y, 2 * 48);
    w.prefer({"tree-size"});
    w.gui().wait_focus("Tree Size Controls");
    EXPECT_EQ(w.gui().value("slider", "#"), "25");
    w.type_into_slider("#", "77");
    w.gui().press("Apply");
    EXPECT_EQ(below_root(w, "2.2").y, 2 * 100);
    w.gui().press("Reset");
    EXPECT_EQ(w.gui().value("slider", "#"), "25");
    EXPECT_EQ(below_root(w, "2.2").y, 2 * 100) << "nothing is applied until Apply";
    w.gui().press("Cancel");
    w.gui().wait_gone("Tree Size Controls");
    w.prefer({"font-size", "large"});
    EXPECT_EQ(below_root(w, "2.2").y, 2 * 88);
    w.prefer({"font-size", "small"});
    EXPECT_EQ(below_root(w, "2.2").y, 2 * 100) << "the applied sizes belong to the font size";
}

TEST(workbench_display, a_font_style_is_drawn_and_measured) {
    Workbench w;
    w.edit();
    const auto width = [&](const char *path) { return w.gui().map().node(path)->area.w; };
    const int bold_sans = width("1.1");
    w.prefer({"font-style", "times-italic"});
    EXPECT_LT(width("1.1"), bold_sans);
    EXPECT_NE(width("1.1"), width("2.1"));
    w.prefer({"font-style", "courier-bold"});
    EXPECT_EQ(width("1.1"), width("2.1")) << "NNP and VBZ in a font of equal widths";
    EXPECT_EQ(width("2.2.1"), width("2.2.2.1")) << "IN and DT";
}

TEST(workbench_display, punctuation_is_hidden_until_it_is_asked_for) {
    Workbench w;
    w.edit();
    EXPECT_EQ(w.gui().map().node("3"), nullptr);
    w.prefer({"punctuation", "show it"});
    ASSERT_NE(w.gui().map().node("3"), nullptr);
    w.gui().click_node("3");
    EXPECT_EQ(w.selected(), "3");
    w.prefer({"punctuation", "don't show it"});
    EXPECT_EQ(w.gui().map().node("3"), nullptr);
}

TEST(workbench_display, arrows_scroll_and_a_new_page_starts_at_its_corner) {
    Workbench w(wide_corpus(), "wide.trees");
    w.edit();
    EXPECT_EQ(scroll_value(w, "horizontal"), "0");
    for (int i = 0; i < 3; ++i) w.gui().key("Right");
    EXPECT_EQ(scroll_value(w, "horizontal"), "48");
    w.gui().key("Left");
    EXPECT_EQ(scroll_value(w, "horizontal"), "32");
    const int left = w.gui().map().node("2")->area.x;
    w.gui().key("Right");
    EXPECT_EQ(w.gui().map().node("2")->area.x, left - 16);
    w.gui().click_node("2");
    EXPECT_EQ(w.selected(), "2") << "clicks hit what is seen";
    w.gui().key("plus");
    w.gui().key("minus");
    EXPECT_EQ(scroll_value(w, "horizontal"), "0");
}

TEST(workbench_display, the_middle_button_tells_what_is_known) {
    Workbench w;
    w.edit();
    w.gui().click_node("2", 2);
    w.answer("Number of occurrences: 3");
    const ShownNode word = *w.gui().map().node("1.1");
    w.gui().click_at(word.area.middle_x(), word.area.middle_y() + 71, 2);
    w.answer("Word: John");
    w.gui().click_node(".", 2, "ctrl");
    w.answer("Root node");
    w.gui().press("Next");
    w.gui().click_node("2.1", 2, "ctrl");
    w.answer("This type of node occurs with the following (checked) parents:");
}

}  // namespace
}  // namespace brindle::windows
