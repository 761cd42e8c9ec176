// Panel items, worked by mouse and keyboard.
#include <gtest/gtest.h>

#include "windows/gui.hpp"

namespace brindle::windows {
namespace {

struct Items : testing::Test {
    Gui gui{{TOOLKIT_DEMO}};
    void expect_said(const std::string &line) { gui.wait_line("Demo", line); }
    void open(const std::string &button, const std::string &title) {
        gui.press(button);
        gui.wait_frame(title);
    }
};

TEST_F(Items, a_requestor_opens_with_the_keyboard_in_its_field) {
    open("Requestor", "Requestor");
    gui.type("a file");
    EXPECT_EQ(gui.value("textfield", "File name:"), "a file");
    gui.key("Return");
    expect_said("file a file");
    EXPECT_EQ(gui.map().frame("Requestor"), nullptr);
    open("Requestor", "Requestor");
    gui.type("new");  // the old text is selected
    EXPECT_EQ(gui.value("textfield", "File name:"), "new");
    gui.press("Ok", "Requestor");
    expect_said("file new");
}

TEST_F(Items, escape_is_cancel_and_the_window_manager_may_close_it) {
    open("Requestor", "Requestor");
    gui.key("Escape");
    expect_said("cancelled");
    gui.wait_gone("Requestor");
    open("Requestor", "Requestor");
    gui.close_window("Requestor");
    gui.wait_gone("Requestor");
}

TEST_F(Items, a_text_field_keeps_its_length_in_bytes_and_takes_any_character) {
    open("Requestor", "Requestor");
    gui.type("0123456789\u00e9\u00e9");
    EXPECT_EQ(gui.value("textfield", "File name:"), "0123456789\u00e9");
    gui.fill("File name:", "\u65e5\u672c");
    EXPECT_EQ(gui.value("textfield", "File name:"), "\u65e5\u672c");
}

TEST_F(Items, tab_completes_and_then_goes_round) {
    open("Requestor", "Requestor");
    gui.type("de");
    gui.key("Tab");
    EXPECT_EQ(gui.value("textfield", "File name:"), "demo.txt");
    gui.key("Tab");  // the choice
    gui.key("Down");
    expect_said("format 1");
    gui.key("Tab");  // the number, selected
    gui.type("7");
    EXPECT_EQ(gui.value("numeric", "Seed:"), "7");
    gui.key("Tab");  // the check box
    expect_said("seed 7");
    gui.key("space");
    EXPECT_EQ(gui.value("checkbox", "Complete labels only"), "0");
    gui.key("shift+Tab");
    gui.type("500");
    gui.key("Return");  // default button: the field's callback
    expect_said("seed 99");
    expect_said("file demo.txt");
}

TEST_F(Items, a_choice_drops_its_options_down) {
    open("Requestor", "Requestor");
    gui.choose_option("Write in:", "Info-format");
    expect_said("format 2");
    EXPECT_EQ(gui.value("choice", "Write in:"), "Info-format");
    gui.click_item("choice", "Write in:");
    gui.key("Up");
    gui.key("Return");
    expect_said("format 1");
    gui.click_item("choice", "Write in:");
    gui.key("Escape");
    EXPECT_EQ(gui.value("choice", "Write in:"), "DOP-format");
    EXPECT_NE(gui.map().frame("Requestor"), nullptr);
}

TEST_F(Items, sliders_are_typed_into_dragged_and_clicked_on) {
    open("Tree", "Tree");
    const Area area = gui.map().item("slider", "Tree #")->area;
    gui.click_at(area.x + 10, area.middle_y());
    gui.type("600");
    gui.key("Return");
    expect_said("tree 600");
    gui.drag(area.x + area.w - 130, area.middle_y(), area.x + area.w + 50, area.middle_y());
    expect_said("tree 1200");
    EXPECT_EQ(gui.value("slider", "Tree #"), "1200");
    gui.click_at(area.x + 10, area.middle_y());
    gui.type("99999");
    gui.key("Return");
    EXPECT_EQ(gui.value("slider", "Tree #"), "1200");
    gui.click_at(area.x + 10, area.middle_y());
    gui.type("5");
    gui.press("Next", "Tree");  // what was typed counts before the button does
    const auto lines = gui.lines("Demo");
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[lines.size() - 2], "tree 5");
    EXPECT_EQ(lines.back(), "next");
}

TEST_F(Items, check_boxes_toggle_and_inactive_buttons_do_not_press) {
    open("Tree", "Tree");
    gui.click_item("checkbox", "Check:");
    expect_said("check true");
    EXPECT_EQ(gui.value("checkbox", "Check:"), "1");
    EXPECT_FALSE(gui.active("button", "Previous"));
}

TEST_F(Items, lists_are_worked_by_keys_and_clicks) {
    open("Selector", "Selector");
    EXPECT_EQ(gui.map().row("row 7"), nullptr);  // below the rows in view
    for (int n = 0; n < 8; ++n) gui.key("Down");
    ASSERT_NE(gui.map().row("row 7"), nullptr);
    EXPECT_TRUE(gui.map().row("row 7")->selected);
    gui.key("Up");
    gui.key("Return");
    expect_said("chose row 6");
    open("Selector", "Selector");
    gui.key("Home");
    gui.click_row("row 2");
    gui.press("Where?");  // deletes the first row
    EXPECT_EQ(gui.value("list", ""), "row 2");
    gui.press("Ok", "Selector");
    expect_said("chose row 2");
    EXPECT_EQ(gui.map().frame("Selector"), nullptr);
}

}  // namespace
}  // namespace brindle::windows
