// The information displays page by page, the notices of the copy mode, the selectors by keyboard.
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "display/information.hpp"
#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

// Checked trees whose labels go together in so many ways that no display of them fits on a page.
std::string many_tags(int trees) {
    std::string text;
    for (int n = 1; n <= trees; ++n) {
        const std::string number = std::to_string(n);
        text += "\n\ntree #" + number + "\n*\n(\n (S|s (NP|tag_of_some_length_" + number +
                " NN/cat) (VP VB|v" + number + "/runs)))\n";
    }
    return text;
}

// Text without empty lines and the blanks around its lines, which notices do not show.
std::string packed(const std::string &text) {
    std::string out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        const auto start = line.find_first_not_of(' ');
        if (start != line.npos) out += line.substr(start, line.find_last_not_of(' ') + 1 - start) + "\n";
    }
    return out;
}

struct Pages {
    std::vector<std::string> pages;
    MoreInfo more() {
        return [this](std::string_view page) {
            pages.push_back(packed(std::string(page)));
            return true;
        };
    }
};

// What the display comes to without windows.
std::vector<std::string> pages_of(const Corpus &corpus, const Node *node, InfoMode mode, bool control) {
    Pages shown;
    const auto last = information(corpus, node, mode, control, shown.more());
    if (last) shown.pages.push_back(packed(*last));
    return shown.pages;
}

// The pages that are shown one after another, each left with "More.." as long as there is one.
std::vector<std::string> pages_shown(Workbench &w) {
    std::vector<std::string> pages;
    while (true) {
        w.gui().wait_frame("Notice");
        std::string page;
        for (const std::string &line : w.gui().lines("Notice")) page += line + "\n";
        const bool more = w.gui().active("button", "More..");
        if (more) page.erase(page.rfind("..."));
        pages.push_back(packed(page));
        if (pages.size() == 2) picture(w, "page.png");
        w.gui().press(more ? "More.." : "Ok");
        if (!more) return pages;
    }
}

TEST(workbench_information, long_displays_are_shown_page_by_page) {
    Workbench w(many_tags(24));
    w.edit();
    const auto corpus = w.read("small.trees");
    const Node *phrase = corpus->tree(0).root->dtrs();
    const Node *cat = phrase->dtrs();
    const Node *runs = phrase->sister()->dtrs();
    const auto at = [&](const char *path, int below, const std::string &modifier) {
        const Area area = w.node(path)->area;
        w.gui().click_at(area.middle_x(), area.middle_y() + below, 2, modifier);
        return pages_shown(w);
    };
    const auto tags = pages_of(*corpus, phrase, InfoMode::nonterm, false);
    EXPECT_GE(tags.size(), 2U);
    EXPECT_EQ(at("1", 0, ""), tags);
    EXPECT_EQ(at("1", 18, ""), pages_of(*corpus, phrase, InfoMode::sem, false));
    EXPECT_EQ(at("1.1", 0, ""), pages_of(*corpus, cat, InfoMode::term, false));
    const auto word = pages_of(*corpus, runs, InfoMode::lex, false);
    EXPECT_GE(word.size(), 4U);
    EXPECT_EQ(at("2.1", 71, ""), word);
    const auto mothers = pages_of(*corpus, cat, InfoMode::term, true);
    EXPECT_EQ(mothers.size(), 8U);
    EXPECT_EQ(at("1.1", 0, "ctrl"), mothers);
    EXPECT_EQ(at("1.1", 71, "ctrl"), pages_of(*corpus, cat, InfoMode::lex, true));
    // "Ok" ends a display at once.
    w.click_node("1", 2);
    w.answer("...", "Ok");
    EXPECT_EQ(w.gui().map().frame("Notice"), nullptr);
}

TEST(workbench_information, a_copy_waits_for_a_click_that_is_meant) {
    Workbench w;
    const std::string window = w.edit();
    w.choose_at("2.2", {"copy"});
    picture(w, "copy.png");
    EXPECT_TRUE(w.gui().footer(window).starts_with("Click on the node whose annotation"));
    EXPECT_TRUE(w.gui().footer(window).ends_with("you want to copy to this node."));
    const Area canvas = w.gui().map().item("canvas", "", window)->area;
    const auto miss = [&](unsigned button) {
        w.gui().click_at(canvas.x + canvas.w - 4, canvas.y + 4, button);
        picture(w, "missed.png");
    };
    miss(1);
    w.answer("You missed!", "Try again");
    w.click_node("2.1", 3);  // any button but the middle one, which goes on telling
    picture(w, "copy_question.png");
    w.gui().wait_line("Notice", "(unlabeled)");
    w.answer("Copy this annotation?", "No");
    w.click_node("1", 2);
    w.answer("Number of occurrences: 5");
    w.click_node("2.2");
    w.answer("Copy this annotation?", "Yes");
    w.answer("Interesting choice!");
    w.wait_footer("");
    w.click_node("1");
    EXPECT_EQ(w.selected(), "1") << "the mode is over";
    w.choose_at("2.2", {"copy"});
    w.choose_at("2.2.2", {});
    w.answer("Copy this annotation?", "Cancel");
    w.wait_footer("");
    w.choose_at("2.2", {"copy"});
    miss(3);
    w.answer("You missed!", "Cancel");
    w.wait_footer("");
    EXPECT_EQ(w.tag("2.2"), "");
    w.gui().press("Quit");
    EXPECT_EQ(w.gui().wait_exit(), 0) << "nothing was changed";
}

TEST(workbench_information, the_selectors_need_no_pointer) {
    Workbench w;
    w.edit();
    const auto open = [&] {
        w.choose_at("1", {"select"});
        w.gui().wait_focus("NP");
    };
    const auto keys = [&](std::initializer_list<const char *> names) {
        for (const char *name : names) w.gui().key(name);
    };
    open();  // john, (unlabeled), mary
    picture(w, "selector_keys.png");
    keys({"2", "Down", "2", "8", "Return"});
    EXPECT_EQ(w.tag("1"), "");
    open();  // (unlabeled), mary
    keys({"Down", "Tab", "Return"});
    EXPECT_EQ(w.tag("1"), "mary") << "Ok";
    open();
    keys({"Down", "Tab", "Tab", "Tab", "Return"});
    w.gui().wait_gone("NP");
    EXPECT_EQ(w.tag("1"), "mary") << "Cancel";
    open();
    keys({"Tab", "Tab", "Return"});
    w.gui().wait_frame("Search & Replace");
    EXPECT_EQ(w.gui().value("textfield", "Semantic:"), "mary") << "Where?";
    w.gui().press("Cancel", "Search & Replace");
    w.gui().press("Cancel", "NP");
    open();
    keys({"Down", "Escape"});
    w.gui().wait_gone("NP");
    EXPECT_EQ(w.tag("1"), "mary");
    // A word has a list of its own.
    const Area word = w.node("1.1")->area;
    w.gui().click_at(word.middle_x(), word.middle_y() + 71, 3);
    w.gui().choose({"select"});
    w.gui().wait_focus("John");
    keys({"Tab", "Tab", "space"});
    w.gui().wait_frame("Search & Replace");
    EXPECT_EQ(w.gui().value("textfield", "Lexical:    "), "John");
    EXPECT_EQ(w.gui().value("textfield", "Syntactic: "), "");
}

}  // namespace
}  // namespace brindle::windows
