// "Search & Replace": every notice it can show, what its answers do, and its way through a large corpus.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

const std::string box = "Search & Replace";

// One more tree, in which NP is the category of a word.
const std::string two_kinds = std::string(small_corpus) + "\n\ntree #4\n(\n (S NP|d1,d1/all VP/well))\n";

class Replacing : public testing::Test {
  protected:
    void open(const std::string &corpus, int tree = 1) {
        w = std::make_unique<Workbench>(corpus);
        window = w->edit();
        if (tree > 1) w->turn_to(tree);
        w->press("Search");
        gui().wait_focus(box);
        gui().server().move_window(box, 4, 20);
        gui().wait_until("box beside the window",
                         [](const UiMap &map) { return map.frame(box)->area.x < 20; });
    }
    Gui &gui() { return w->gui(); }

    void fields(const std::string &syn, const std::string &lex, const std::string &sem) {
        gui().fill("Syntactic: ", syn, box);
        gui().fill("Lexical:    ", lex, box);
        gui().fill("Semantic:", sem, box);
    }
    void act(const std::string &button) { gui().press(button, box); }
    void toggle(const std::string &label) { gui().click_item("checkbox", label, box); }

    std::unique_ptr<Workbench> w;
    std::string window;
};

TEST_F(Replacing, what_cannot_be_found_or_replaced_is_told) {
    open(two_kinds);
    fields("XP", "bird", "sings");
    act("Search");
    w->answer("Syntactic label \"XP\" does not occur in this corpus");
    w->answer("Neither does \"sings\"");
    w->answer("Nor \"bird\"");
    fields("", "bird", "");
    act("Search");
    w->answer("Lexical item \"bird\" does not occur in this corpus");
    act("Replace");
    w->answer("No semantic tag to replace!");
    gui().choose_option("Replace ", "syntax", box);
    act("Replace all");
    w->answer("No syntactic  tag to replace!");
    gui().fill("Syntactic: ", "NP", box);
    act("Replace all");
    w->answer("Illegal empty replace field");
    for (const std::string &mark : {std::string("|"), std::string("/")}) {
        gui().fill("with:", "N" + mark + "P", box);
        act("Replace");
        picture(*w, "refused.png");
        w->answer("You cannot use '" + mark + "' in a syntactic tag; it is");
    }
    EXPECT_EQ(w->tag("1"), "john");
}

TEST_F(Replacing, the_answers_decide_how_to_go_on) {
    open(two_kinds, 2);
    fields("NP", "", "");
    act("Search");
    picture(*w, "which_kind.png");
    w->answer("There are two different syntactic categories called NP;", "Terminal");
    w->answer("Found", "Go back");
    EXPECT_EQ(w->tree(), "2");
    toggle("Start here");
    act("Search");
    w->answer("There are two different syntactic categories called NP;", "Non-terminal");
    w->answer("Found", "Again");
    w->answer("Found", "Again");
    w->answer("Found", "Again");
    w->answer("Not found");
    EXPECT_EQ(w->tree(), "3");
    fields("NP", "all", "");  // with a word it is clear which one is meant
    act("Search");
    picture(*w, "found.png");
    w->answer("Found", "Ok");
    EXPECT_EQ(w->tree(), "4");
    toggle("Start here");
    fields("", "", "s(d1,d2)");
    gui().fill("with:", "", box);
    act("Replace");
    w->answer("Replace?", "No");
    w->answer("Search again?", "Yes");
    w->answer("Replace?", "Yes");
    w->answer("Search again?", "Go back");
    EXPECT_EQ(w->tree(), "4");
    w->turn_to(3);
    EXPECT_EQ(w->tag("."), "");
    w->turn_to(1);
    EXPECT_EQ(w->tag("."), "s(d1,d2)");
    act("Replace all");
    gui().wait_frame("Notice");
    gui().key("n");
    w->answer("Not found");
    EXPECT_EQ(w->tag("."), "s(d1,d2)");
    act("Replace all");
    w->answer("Replace?", "Cancel");
    EXPECT_EQ(w->tree(), "1");
}

TEST_F(Replacing, parts_of_labels_and_categories_are_replaced) {
    open(two_kinds, 4);
    fields("", "all", "d1");
    toggle("Complete labels only");
    gui().fill("with:", "e", box);
    act("Replace");
    w->answer("Replace?", "Yes");
    w->answer("Search again?", "No");
    EXPECT_EQ(w->tag("1"), "e,e") << "every occurrence in a tag";
    fields("NNP", "", "");
    gui().choose_option("Replace ", "syntax", box);
    gui().fill("with:", "NAME", box);
    toggle("Prompt at replace");
    act("Replace all");
    EXPECT_EQ(w->tree(), "3");
    EXPECT_EQ(gui().map().frame("Notice"), nullptr);
    w->press("Save");
    w->wait_footer("small.trees saved");
    const auto corpus = w->read("small.trees");
    EXPECT_EQ(corpus->statistics->find("NAME", LabelKind::TERM)->count, 4);
    EXPECT_EQ(corpus->statistics->find("NNP", LabelKind::TERM), nullptr);
}

TEST_F(Replacing, a_long_way_is_ended_by_control_c) {
    constexpr int copies = 40000;
    open(many_trees(copies), 5);
    toggle("Complete labels only");
    toggle("Prompt at replace");
    // The key comes while the program works.
    const auto start_and_stop = [&](const std::string &button) {
        const Area at = gui().map().item("button", button, box)->area;
        gui().at_once([&](XServer &server) {
            server.move_pointer(at.middle_x(), at.middle_y());
            server.button(1, true);
            server.button(1, false);
            server.sync_manager();  // through whose hands clicks go, but no keys
            server.key("ctrl+c");
        });
        const UiMap &map = gui().wait_until("end of the search", [](const UiMap &m) {
            return std::ranges::none_of(m.frames, &ShownFrame::busy);
        });
        EXPECT_EQ(map.frame("Notice"), nullptr);
    };
    w->turn_to(3 * copies);
    w->type_tag("1", "far");
    w->turn_to(5);
    fields("", "", "far");
    start_and_stop("Search");
    EXPECT_EQ(w->tree(), "5");
    act("Search");
    w->answer("Found", "Go back");
    EXPECT_EQ(w->tree(), "5");
    fields("N", "", "");
    gui().choose_option("Replace ", "syntax", box);
    gui().fill("with:", "X", box);
    start_and_stop("Replace all");
    w->turn_to(3 * copies);
    EXPECT_EQ(w->node("1")->category, "NP") << "it was not reached";
    w->turn_to(3 * copies - 20);
    gui().fill("Syntactic: ", "", box);
    gui().fill("Lexical:    ", "table", box);
    gui().fill("with:", "Y", box);
    gui().choose_option("Replace ", "semantics", box);
    gui().fill("Semantic:", "john", box);
    toggle("Start here");
    act("Replace all");
    EXPECT_EQ(std::stoi(w->tree()), 3 * copies - 20) << "no table has that tag";
    gui().fill("Lexical:    ", "", box);
    act("Replace all");
    EXPECT_EQ(std::stoi(w->tree()), 3 * copies - 2) << "the last one is shown";
    EXPECT_EQ(w->tag("1"), "Y");
}

}  // namespace
}  // namespace brindle::windows
