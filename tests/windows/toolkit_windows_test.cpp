// Frames, canvases, menus, notices, text windows and the notifier, worked as a person does.
#include <gtest/gtest.h>

#include <algorithm>

#include "windows/demo_test.hpp"

namespace brindle::windows {
namespace {

struct Windows : DemoTest {};

INSTANTIATE_TEST_SUITE_P(manager, Windows, testing::Bool(),
                         [](const auto &test) { return test.param ? "openbox" : "none"; });

TEST_P(Windows, frames_open_with_the_keyboard_and_close) {
    open("Requestor", "Requestor");
    gui.type("x");
    gui.key("Escape");
    gui.wait_gone("Requestor");
    gui.wait_focus("Demo");
    gui.type("2 + 2");
    gui.key("Return");
    expect_said("query 2 + 2");
    open("Tree", "Tree");
    EXPECT_EQ(gui.footer("Tree"), "A footer in one line");
    gui.press("Close", "Tree");
    gui.wait_gone("Tree");
    gui.close_window("Demo");
    EXPECT_EQ(gui.wait_exit(), 0);
}

TEST_P(Windows, a_canvas_gets_buttons_keys_and_modifiers) {
    open("Tree", "Tree");
    gui.click_node("1.1", 1, "ctrl");
    expect_said("select true control");
    EXPECT_TRUE(gui.map().node("1.1")->selected);
    gui.key("Page_Down");
    expect_said("key 0x200009");
    gui.key("plus");
    expect_said("key 0x2b");
    gui.key("ctrl+c");
    expect_said("key 0x3");
    gui.click_node("0.0", 1, "shift");
    expect_said("select true shift");
    EXPECT_FALSE(gui.map().node("1.1")->selected);
}

TEST_P(Windows, notices_answer_to_buttons_and_keys) {
    const auto answers = [&](const std::string &key, const std::string &line) {
        gui.press("Ask");
        gui.wait_focus("Notice");
        gui.key(key);
        expect_said(line);
    };
    answers("Return", "answer 115");
    answers("Escape", "answer 2");
    answers("ctrl+c", "answer 99");
    gui.press("Ask");
    gui.press("Cancel", "Notice");
    EXPECT_EQ(gui.map().frame("Notice"), nullptr);
    answers("n", "answer 5");  // shows another
    expect_said("timer in notice");
    EXPECT_TRUE(gui.map().has_line("Notice", "Sure?"));
    gui.key("Return");
    expect_said("again 1");
}

TEST_P(Windows, a_notice_keeps_other_windows_from_input) {
    gui.press("Ask");
    gui.wait_focus("Notice");
    const Area notice = gui.map().frame("Notice")->area;
    const Area child = gui.map().item("button", "Child")->area;
    ASSERT_TRUE(child.y + child.h < notice.y || child.x + child.w < notice.x);
    gui.press("Child");
    gui.close_window("Demo");
    gui.key("Return");
    expect_said("answer 115");
    EXPECT_EQ(gui.lines("Demo"), std::vector<std::string>{"answer 115"});
}

TEST_P(Windows, a_notice_points_at_its_place_without_covering_it) {
    open("Tree", "Tree");
    for (const char *path : {"0.0", "2.2"}) {
        const Area node = gui.map().node(path)->area;
        gui.click_node(path, 2);
        const Area notice = gui.wait_frame("Notice").area;
        EXPECT_TRUE(node.middle_x() < notice.x || node.middle_x() >= notice.x + notice.w ||
                    node.middle_y() < notice.y || node.middle_y() >= notice.y + notice.h);
        EXPECT_EQ(gui.lines("Notice"), (std::vector<std::string>{"Tab: separated", "lines", "of a message"}));
        gui.key("Escape");
        gui.wait_gone("Notice");
    }
}

TEST_P(Windows, a_canvas_scrolls_and_grows_with_its_frame) {
    open("Tree", "Tree");
    const auto seen = [&](const char *path) { return gui.map().node(path) != nullptr; };
    EXPECT_FALSE(seen("7.0"));
    const Area canvas = gui.map().item("canvas", "")->area;
    gui.click_at(canvas.middle_x(), canvas.middle_y(), 5);
    EXPECT_GT(std::stoi(gui.value("scrollbar", "vertical")), 0);
    const Area bar = gui.map().item("scrollbar", "vertical")->area;
    gui.drag(bar.middle_x(), bar.y + bar.h / 4, bar.middle_x(), bar.y + bar.h);
    EXPECT_TRUE(seen("7.0"));
    gui.click_node("7.0");
    expect_said("select true");
    EXPECT_TRUE(gui.map().node("7.0")->selected);
    const std::size_t before = gui.map().nodes.size();
    gui.server().resize_window("Tree", 800, 700);
    gui.wait_until("a larger canvas",
                   [&](const UiMap &map) { return map.item("canvas", "")->area.w == 787; });
    EXPECT_GT(gui.map().nodes.size(), before);
}

TEST_P(Windows, busy_frames_ignore_input_and_dispatch_serves_the_rest) {
    open("Batch", "Batch");
    gui.press("Work");
    EXPECT_TRUE(gui.wait_frame("Demo").busy);
    const auto before = gui.lines("Demo");
    gui.press("Child");
    gui.close_window("Demo");
    EXPECT_EQ(gui.lines("Demo"), before);
    gui.press("Abort");
    expect_said("worked true");
    EXPECT_FALSE(gui.wait_frame("Demo").busy);
    gui.press("Child");
    expect_said("child ended 3");
}

TEST_P(Windows, children_are_reaped_and_descriptors_read) {
    gui.press("Ask");  // even while a notice waits
    gui.press("Cancel", "Notice");
    gui.press("Child");
    gui.press("Ask");
    expect_said("read from-child");
    expect_said("end of input");
    expect_said("child ended 3");
    gui.key("Escape");
}

TEST_P(Windows, nothing_is_too_long) {
    gui.press("Long");
    const Area area = gui.wait_frame("Notice").area;
    EXPECT_TRUE(area.y >= 0 && area.y + area.h <= 1000);
    EXPECT_TRUE(gui.map().has_line("Notice", "line 1"));
    const UiMap map = gui.map();
    const ShownFrame main = *map.frame("Demo");
    for (const ShownItem &item : map.items) {
        if (item.frame != main.id) continue;
        EXPECT_LE(item.area.x + item.area.w, main.area.x + main.area.w) << item.label;
    }
    gui.press("Ok", "Notice");
    expect_said("long 1 true");
    expect_said("caf\u00e9 \U0010ffff");  // a byte that is no character has a sign of its own
    expect_said("output line 30000 of very many lines");
}

TEST_P(Windows, command_frames_open_on_the_screen) {
    Gui corner({TOOLKIT_DEMO, "-geometry", "400x400-0-0", "-title", "Corner"}, {GetParam(), {}, {}});
    const Area main = corner.wait_frame("Corner").area;
    EXPECT_GT(main.x, 700);
    EXPECT_GT(main.y, 500);
    for (const char *name : {"Selector", "Editor"}) {
        corner.press(name);
        const Area area = corner.wait_frame(name).area;
        EXPECT_TRUE(area.x >= 0 && area.y >= 0 && area.x + area.w <= 1280 && area.y + area.h <= 1000) << name;
        corner.press("Cancel", name);
    }
}

TEST_P(Windows, an_editor_undoes_and_redoes_any_number_of_changes) {
    open("Editor", "Editor");
    const std::vector<std::string> start{"(S", "    (NP", "        DT/the))"};
    EXPECT_EQ(gui.lines("Editor"), start);
    gui.type("one two");
    gui.key("Return");
    gui.type("x");
    EXPECT_EQ(gui.lines("Editor"),
              (std::vector<std::string>{"one two", "x(S", "    (NP", "        DT/the))"}));
    for (const char *key : {"alt+u", "ctrl+z"}) gui.key(key);
    EXPECT_EQ(gui.lines("Editor")[0], "one (S");
    gui.press("Redo");
    EXPECT_EQ(gui.lines("Editor")[1], "(S");
    gui.press("Undo");
    gui.press("Undo");
    EXPECT_EQ(gui.lines("Editor"), start);
    gui.press("Line 2");
    gui.key("ctrl+shift+u");  // to the line's end
    EXPECT_EQ(gui.lines("Editor"), (std::vector<std::string>{"(S", "", "        DT/the))"}));
    gui.key("alt+u");
    EXPECT_EQ(gui.lines("Editor"), start);
    gui.key("ctrl+a");
    gui.key("alt+x");
    EXPECT_EQ(gui.lines("Editor"), std::vector<std::string>{});
    gui.key("alt+v");
    gui.key("alt+v");
    EXPECT_EQ(gui.lines("Editor").size(), 5U);
}

TEST(Start, without_a_display_there_is_one_line_and_status_1) {
    Process program({TOOLKIT_DEMO, "-display", ":4711"}, {}, "no-display.txt");
    EXPECT_EQ(program.wait(), 1);
    std::FILE *file = std::fopen("no-display.txt", "r");
    ASSERT_NE(file, nullptr);
    char line[200] = {};
    EXPECT_NE(std::fgets(line, sizeof line, file), nullptr);
    EXPECT_NE(std::string(line).find("cannot open the display \":4711\"\n"), std::string::npos);
    EXPECT_EQ(std::fgets(line, sizeof line, file), nullptr);
    std::fclose(file);
    std::remove("no-display.txt");
}

TEST(Start, a_usage_error_needs_no_display) {
    Process program({TOOLKIT_DEMO, "-display", ":4711", "unknown"}, {}, "/dev/null");
    EXPECT_EQ(program.wait(), 2);
}

TEST(Start, the_scale_makes_everything_larger) {
    const auto width = [](const char *scale) {
        Gui gui({TOOLKIT_DEMO}, {false, {scale}, {}});
        gui.press("Tree");
        gui.click_node("1.1");
        EXPECT_TRUE(gui.map().node("1.1")->selected);
        return gui.wait_frame("Tree").area.w;
    };
    const int plain = width("BRINDLE_SCALE=1");
    EXPECT_NEAR(width("BRINDLE_SCALE=1.5"), plain * 1.5, 2);
}

}  // namespace
}  // namespace brindle::windows
