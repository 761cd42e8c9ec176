// Proposing and batch runs in windows.
#include <gtest/gtest.h>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

TEST(workbench_batch, a_proposal_is_told_and_undone) {
    Workbench w;
    w.edit();
    w.gui().press("Next");
    w.gui().press("Propose");
    w.answer("The annotation of the selected nodes");
    EXPECT_EQ(w.tag("1.1"), "") << "Mary never has a tag herself";
    EXPECT_EQ(w.tag("2.1"), "NO_MATCH");
    w.choose_at("2.1", {"undo", "undo all edits", "on this tree"});
    EXPECT_EQ(w.tag("2.1"), "");
}

TEST(workbench_batch, a_selection_is_counted_evaluated_and_undone) {
    Workbench w;
    w.edit();
    w.open_batch_box();
    picture(w, "batch.png");
    EXPECT_EQ(w.gui().value("message", "2"), "");
    w.gui().choose_option("Type of trees:", "Both");
    w.gui().press("Propose and evaluate results");
    w.gui().wait_frame("Save evaluation results in:");
    w.gui().fill("File name:", "report", "Save evaluation results in:");
    w.gui().key("Return");
    w.wait_footer("");
    w.gui().wait_until("the report", [&](const UiMap &) { return !w.file("report").empty(); });
    EXPECT_NE(w.file("report").find("\nSize of training set: 2 trees"), std::string::npos);
    EXPECT_NE(w.file("report").find("\ntrees: \t3 \n"), std::string::npos);
    w.gui().press("Undo all edits on tree");
    w.gui().press("Check tree");
    w.gui().press("Write selection to file");
    w.gui().wait_frame("Save corpus as");
    w.gui().fill("File name:", "selection", "Save corpus as");
    w.gui().key("Return");
    w.wait_footer("Selection written to selection....");
    EXPECT_EQ(w.file("selection").substr(0, 31), "\ntree #1\nitem #1\n\n*\n(\n (S|s(d1,");
}

TEST(workbench_batch, the_box_opens_anew_with_its_first_number_selected) {
    Workbench w;
    w.edit();
    for (const char *number : {"2", "3"}) {
        w.open_batch_box();
        w.gui().type(number);  // over what was there
        EXPECT_EQ(w.gui().value("slider", "From:"), number);
        w.gui().key("Escape");
        w.gui().wait_gone("Batch processing");
    }
}

}  // namespace
}  // namespace brindle::windows
