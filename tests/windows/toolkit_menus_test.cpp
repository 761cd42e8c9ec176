// Pop-up menus, worked as a person does.
#include <gtest/gtest.h>

#include <cstdlib>

#include "windows/demo_test.hpp"

namespace brindle::windows {
namespace {

struct Menus : DemoTest {};

INSTANTIATE_TEST_SUITE_P(manager, Menus, testing::Bool(),
                         [](const auto &test) { return test.param ? "openbox" : "none"; });

TEST_P(Menus, menus_by_mouse_and_by_keyboard) {
    open("Tree", "Tree");
    gui.click_node("0.0", 3);
    gui.choose({"undo", "undo all edits", "on this tree"});
    expect_said("chose on this tree");
    EXPECT_EQ(gui.map().frame("Places"), nullptr);
    gui.click_node("1.1", 3);
    gui.wait_frame("Places");
    for (const char *key : {"Down", "Down", "Right", "Return"}) gui.key(key);  // over the inactive "copy"
    expect_said("chose this node");
    gui.click_node("1.1", 3);
    gui.key("u");
    gui.key("Return");
    gui.key("Left");
    gui.key("Escape");
    EXPECT_EQ(gui.map().frame("Places"), nullptr);
    const Area frame = gui.wait_frame("Demo").area;
    gui.click_node("0.1", 3);
    gui.wait_frame("Places");
    gui.click_at(frame.x + 5, frame.y + frame.h - 40);  // beside the menu
    EXPECT_EQ(gui.map().frame("Places"), nullptr);
}

TEST_P(Menus, a_menu_higher_than_the_screen_scrolls) {
    open("Tree", "Tree");
    const auto entry = [&](int n) { return gui.map().item("menuentry", "place " + std::to_string(n)); };
    const auto open_far = [&] {
        gui.click_node("0.0", 3);
        gui.wait_frame("Places");
        gui.key("f");
        gui.key("Right");
        ASSERT_NE(entry(1), nullptr);
        ASSERT_EQ(entry(60), nullptr) << "a menu that fits shows nothing";
    };
    open_far();
    const Area menu = gui.map().frames.back().area;
    EXPECT_GE(menu.y, 0);
    EXPECT_LE(menu.y + menu.h, 1000);
    if (const char *folder = std::getenv("BRINDLE_PICTURES"))
        gui.screenshot(std::string(folder) + "/long_menu.png");
    for (const char *key : {"End", "Up", "Return"}) gui.key(key);
    expect_said("chose place 59");
    open_far();
    gui.server().move_pointer(menu.middle_x(), menu.middle_y());
    for (int turn = 0; turn < 20; ++turn) gui.server().button(5, true), gui.server().button(5, false);
    ASSERT_NE(entry(60), nullptr);
    gui.choose({"place 60"});
    expect_said("chose place 60");
    open_far();
    gui.server().move_pointer(menu.middle_x(), menu.y + menu.h - 6);  // on the arrow
    gui.wait_until("last entry", [](const UiMap &map) { return map.item("menuentry", "place 60"); });
    gui.choose({"place 58"});
    expect_said("chose place 58");
}

TEST_P(Menus, a_menu_pulled_with_the_button_down_takes_the_entry_of_its_release) {
    open("Tree", "Tree");
    const Area node = gui.map().node("0.0")->area;
    gui.server().move_pointer(node.middle_x(), node.middle_y());
    gui.server().button(3, true);
    gui.wait_frame("Places");
    const Area entry = gui.map().item("menuentry", "edit")->area;
    gui.server().move_pointer(entry.middle_x(), entry.middle_y());
    gui.server().button(3, false);
    expect_said("chose edit");
}

}  // namespace
}  // namespace brindle::windows
