// Requestors for file names: completion, what they remember, names that cannot be written.
#include <gtest/gtest.h>

#include <filesystem>

#include <fmt/format.h>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

const std::string requestor = "Save corpus as";

class Saving : public testing::Test {
  protected:
    void SetUp() override { window = w.edit(); }
    Gui &gui() { return w.gui(); }

    void open() {
        w.press("Save as");
        gui().wait_focus(requestor);
    }
    std::string name() { return gui().value("textfield", "File name:", requestor); }

    Workbench w;
    std::string window;
};

TEST_F(Saving, tab_completes_a_file_name) {
    std::filesystem::create_directory(w.path("archive"));
    w.type_tag("1", "jack");
    open();
    gui().type("ar");
    gui().key("Tab");
    EXPECT_EQ(name(), "archive/");
    gui().type("new.trees");
    picture(w, "completed.png");
    gui().key("Return");
    w.wait_footer("archive/new.trees saved");
    EXPECT_NE(w.file("archive/new.trees").find("(NP|jack NNP/John)"), std::string::npos);
    // It remembers the name, which typing replaces.
    w.type_tag("1", "joe");
    open();
    EXPECT_EQ(name(), "archive/new.trees");
    gui().type("archive/n");
    gui().key("Tab");
    EXPECT_EQ(name(), "archive/new.trees");
    gui().key("Return");
    w.answer("exists, overwrite?", "Yes");
    w.wait_footer("archive/new.trees saved");
    EXPECT_NE(w.file("archive/new.trees").find("(NP|joe NNP/John)"), std::string::npos);
}

TEST_F(Saving, a_name_that_cannot_be_written_is_told_with_the_reason) {
    w.type_tag("1", "jack");
    open();
    gui().type("no/such/place.trees");
    gui().key("Return");
    gui().wait_line("Notice", "no/such/place.trees");
    gui().wait_line("Notice", "No such file or directory");
    picture(w, "unwritten.png");
    w.answer("cannot write to:");
    EXPECT_NE(gui().map().item("button", "Edit small.trees"), nullptr) << "the corpus is what it was";
    gui().press("Quit");
    w.answer("There are unsaved edits,", "No, cancel that");
    open();
    gui().choose_option("Write in:", "DOP-format", requestor);
    w.answer("Note: A filename ending in \".aug\" will augment");
    gui().fill("File name:", "/dev/full", requestor);
    gui().key("Return");
    w.answer("exists, overwrite?", "Yes");
    gui().wait_line("Notice", "No space left on device");
    w.answer("cannot write to:");
}

TEST_F(Saving, a_latex_file_names_the_tree_of_its_menu) {
    const std::string title = "Tree to LaTeX";
    w.click_node("1");
    w.choose_at("1", {"Export to LaTeX"});
    gui().wait_focus(title);
    w.press("Next");
    gui().fill("    File:", "tree.tex", title);
    gui().key("Return");
    w.wait_footer("tree.tex created");
    EXPECT_NE(w.file("tree.tex").find("{(subtree of) tree nr: 1 in corpus small.trees}"), std::string::npos);
    w.press("Previous");
    w.choose_at("1", {"Export to LaTeX"});
    gui().wait_focus(title);
    gui().fill("    File:", "no/such.tex", title);
    gui().key("Return");
    gui().wait_line("Notice", "no/such.tex");
    gui().wait_line("Notice", "No such file or directory");
    picture(w, "unwritten_latex.png");
    w.answer("cannot write to", "Bummer!");
}

// Every tree of the information format waits for a program.
TEST(workbench_saving, control_c_ends_the_information_format_after_the_tree_in_hand) {
    std::string corpus;
    constexpr int trees = 5000;
    for (int t = 1; t <= trees; ++t) corpus += fmt::format("\n\ntree #{}\n(\n (S|s NN/x))\n", t);
    Workbench w(corpus);
    const std::string window = w.edit();
    w.press("Save as");
    w.gui().wait_focus(requestor);
    w.gui().choose_option("Write in:", "Info-format", requestor);
    w.gui().fill("File name:", "listing", requestor);
    w.gui().key("Return");
    w.gui().wait_until("writing", [&](const UiMap &map) { return map.frame(window)->busy; });
    w.gui().raise(window);
    w.gui().key("ctrl+c");
    w.wait_footer("listing written in INFO-format");
    for (const ShownFrame &frame : w.gui().map().frames) EXPECT_FALSE(frame.busy) << frame.title;
    const std::string listing = w.file("listing");
    EXPECT_NE(listing.find("======-1-======"), std::string::npos);
    EXPECT_EQ(listing.find(fmt::format("======-{}-======", trees)), std::string::npos)
        << "it was not reached";
    EXPECT_TRUE(listing.ends_with(")\n"));
    w.press("Next");
    EXPECT_EQ(w.tree(), "2");
}

}  // namespace
}  // namespace brindle::windows
