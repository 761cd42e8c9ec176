// Starting the workbench: what its command line says, with and without a display.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <set>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

struct Outcome {
    int status;
    std::string output;  // of both streams
};

// Runs the workbench from a shell, without a display.
Outcome run(const std::string &arguments) {
    const std::string command = "env -u DISPLAY " BRINDLE_PROGRAM " " + arguments + " 2>&1";
    std::FILE *pipe = popen(command.c_str(), "r");
    Outcome outcome{};
    char piece[512];
    while (const std::size_t size = std::fread(piece, 1, sizeof piece, pipe))
        outcome.output.append(piece, size);
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
}

const std::string usage =
    "\nerror: Usage:\n\t" BRINDLE_PROGRAM " [-w <wordgraphfile>][X-options] <corpusname>\n";

TEST(workbench_start, a_wrong_command_line_stops_with_the_usage) {
    for (const char *arguments : {"", "a b", "-x graphs corpus", "-wx graphs corpus", "a b c d",
                                  "-display :7", "-geometry 300x300 -title Towns a b"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.output, usage) << arguments;
        EXPECT_EQ(outcome.status, 1) << arguments;
    }
}

TEST(workbench_start, help_and_version_need_no_display) {
    const Outcome help = run("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("-w <wordgraphfile>"), std::string::npos);
    EXPECT_EQ(run("--version").output, "brindle " BRINDLE_VERSION "\n");
}

TEST(workbench_start, faults_of_the_corpus_are_told_before_a_display_is_needed) {
    const Outcome missing = run("-display :7 /no/such/corpus");
    EXPECT_EQ(missing.output, "/no/such/corpus: No such file or directory\n");
    EXPECT_EQ(missing.status, 1);
    const std::string name = testing::TempDir() + "/broken.trees";
    std::ofstream(name) << "((S\n(NP NN|/cat)))\n";
    const Outcome broken = run(name);
    std::remove(name.c_str());
    EXPECT_NE(broken.output.find("\nerror: Semantic tag expected in line 2\n"), std::string::npos)
        << broken.output;
    EXPECT_EQ(broken.status, 1);
}

TEST(workbench_start, without_a_server_one_line_says_so) {
    const std::string name = testing::TempDir() + "/good.trees";
    std::ofstream(name) << small_corpus;
    const Outcome outcome = run("-display :799 " + name);
    std::remove(name.c_str());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find(":799"), std::string::npos) << outcome.output;
}

TEST(workbench_start, a_long_corpus_name_is_cut_in_the_button) {
    Workbench w(small_corpus, "a_corpus_with_a_rather_long_name.tr");
    EXPECT_NE(w.gui().map().item("button", "Edit a_corpus_with_a_rather_long_nam..."), nullptr);
    w.gui().press("Edit a_corpus_with_a_rather_long_nam...");
    w.gui().wait_frame("a_corpus_with_a_rather_long_name.tr");
}

// The colours in a part of the screen.
std::set<unsigned long> colours(Gui &gui, const Area &area) {
    std::set<unsigned long> found;
    for (int y = area.y; y < area.y + area.h; y += 2)
        for (int x = area.x; x < area.x + area.w; ++x) found.insert(gui.server().pixel(x, y));
    return found;
}

TEST(workbench_start, x_options_choose_colours_and_the_font) {
    const auto label_width = [](Workbench &w) {
        return w.gui().map().item("button", "Edit small.trees")->area.w;
    };
    const int width = label_width(*std::make_unique<Workbench>());
    constexpr unsigned long ground = 0xFFFF00, ink = 0x0000FF;
    const std::vector<std::string> options{"-fg", "blue", "-bg", "#ffff00", "-fn", "courier-bold"};
    for (const bool reversed : {false, true}) {
        std::vector<std::string> all = options;
        if (reversed) all.push_back("-rv");
        Workbench w(small_corpus, "small.trees", all);
        EXPECT_NE(label_width(w), width);
        const std::string window = w.edit();
        picture(w, reversed ? "reversed.png" : "colours.png");
        const Area root = w.node(".")->area;
        const auto found = colours(w.gui(), {root.x - 4, root.y - 2, root.w + 8, root.h + 4});
        EXPECT_TRUE(found.contains(ground) && found.contains(ink));
        const Area canvas = w.gui().map().item("canvas", "", window)->area;
        EXPECT_EQ(w.gui().server().pixel(canvas.x + 2, canvas.y + 2), reversed ? ink : ground);
        const Area output = w.gui().map().item("textwindow", "", "BRINDLE")->area;
        EXPECT_EQ(w.gui().server().pixel(output.x + output.w - 40, output.y + output.h - 8),
                  reversed ? ink : ground);
    }
}

TEST(workbench_start, the_highest_window_fits_on_the_screen_however_large_its_letters) {
    Workbench w(small_corpus, "small.trees", {"-scale", "1.9"});
    w.edit();
    w.press("Batch");
    w.gui().wait_focus("Batch processing");
    picture(w, "large.png");
    const UiMap &map = w.gui().map();
    int bottom = map.frame("Batch processing")->area.y;
    for (const char *label : {"Actions:", "Filter all nodes through prolog", "Check tree", "Cancel"}) {
        const ShownItem *item = map.item(label[0] == 'A' ? "message" : "button", label, "Batch processing");
        ASSERT_NE(item, nullptr) << label;
        EXPECT_GE(item->area.y, bottom) << label;
        bottom = item->area.y + item->area.h;
    }
    EXPECT_GT(map.frame("Batch processing")->area.y, 0) << "the title is on the screen";
    EXPECT_LT(bottom, 1000);
}

TEST(workbench_start, it_can_start_as_an_icon) {
    Workbench w(small_corpus, "small.trees", {"-iconic", "-title", "Towns"});
    EXPECT_TRUE(w.gui().map().frames.empty());
    w.gui().server().map_window("Towns");
    const auto on_screen = [](const UiMap &map) {
        const ShownFrame *frame = map.frame("Towns");
        return frame && frame->area.y + frame->area.h < 1000;
    };
    const Area output = w.gui().wait_until("window", on_screen).frame("Towns")->area;
    ASSERT_TRUE(w.gui().server().await_pixel(output.middle_x(), output.middle_y(), 0xFFFFFF, in_seconds(10)));
    w.edit();
    EXPECT_EQ(w.tag("1"), "john") << "only the first window is an icon";
}

}  // namespace
}  // namespace brindle::windows
