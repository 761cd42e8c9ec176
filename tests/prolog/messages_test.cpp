#include "prolog/messages.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "model/label_rules.hpp"
#include "model/request.hpp"
#include "prolog/poll_host.hpp"
#include "stats/tables.hpp"
#include "support/corpus.hpp"
#include "support/recording_front_end.hpp"

namespace brindle {
namespace {

struct Host final : PollHost {
    void notice(std::string_view text) override { log.push_back("notice:" + std::string(text)); }
    void stop_batch(TreeView *) override { log.push_back("stop"); }
    void batch_prompt_at_node(Node *node, std::string_view text, TreeView *) override {
        log.push_back(std::string(node->syn->view()) + ":" + std::string(text));
    }
    std::vector<std::string> log;
};

class Messages : public ::testing::Test {
  protected:
    Messages() { BATCH_TREE_GUI = &view; }

    std::string_view filtered(std::string_view message) {
        front.log.clear();
        FILTER_NODE = root;
        show_message(host, message);
        return text_of(root->sem);
    }

    test::Corpus corpus{"* ( (S|old NP/towns) )"};
    test::RecordingFrontEnd front;
    Host host;
    TreeView view;
    Node *root = corpus.at(".");
};

TEST_F(Messages, filter_gives_the_node_its_tag_and_repaints) {
    EXPECT_EQ(filtered("f(x, y)"), "f(x,_y)");
    EXPECT_EQ(front.log, std::vector<std::string>{"repaint"});
    EXPECT_EQ(FILTER_NODE, nullptr);
    EXPECT_EQ(filtered(" two "), "_two_");
    EXPECT_EQ(filtered("\ng(x)\n"), "g(x)");
    // The tree is checked: its counts are counted as checked.
    const LabelEntry *entry = find_label("g(x)")->sem;
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->checked_count, 1);
    EXPECT_EQ(host.log, std::vector<std::string>{});
    EXPECT_EQ(filtered(""), "");
}

TEST_F(Messages, what_cannot_be_a_tag_is_refused_at_the_node) {
    for (const std::string &text : {std::string("a/b"), std::string("f(x"), std::string("a)("),
                                    std::string("a\tb"), std::string("a\nb"), std::string(1024, 'x')}) {
        EXPECT_EQ(filtered(text), "old") << text;
        ASSERT_EQ(front.log.size(), 1u) << text;
        EXPECT_EQ(front.log.front(),
                  "prompt at .: Prolog's answer cannot be the tag:\n" + refuse_tag(text).value());
    }
    EXPECT_EQ(filtered(std::string(1023, 'x')), std::string(1023, 'x'));
}

TEST_F(Messages, a_batch_filters_without_repaint_and_goes_on) {
    BATCH = true;
    EXPECT_EQ(filtered("new"), "new");
    EXPECT_EQ(front.log, std::vector<std::string>{});
    EXPECT_EQ(FILTER_NODE, root);
}

TEST_F(Messages, other_askers) {
    EVAL_NODE = root;
    show_message(host, "an answer");
    EVAL_NODE = nullptr;
    show_message(host, "to nobody");
    EXPECT_EQ(host.log, (std::vector<std::string>{"S:an answer", "notice:to nobody"}));
    EXPECT_EQ(text_of(root->sem), "old");
}

TEST_F(Messages, an_unfinished_message_ends_the_batch) {
    const std::string text =
        "notice:Error:\n\"begin message\" encountered in prolog output,\nwithout matching \"end message\"";
    FILTER_NODE = root;
    no_end_message(host);
    EXPECT_EQ(host.log, std::vector<std::string>{text});
    EXPECT_EQ(FILTER_NODE, nullptr);
    BATCH = true;
    EVAL_NODE = root;
    host.log.clear();
    no_end_message(host);
    EXPECT_EQ(host.log, (std::vector<std::string>{text, "stop"}));
    EXPECT_FALSE(BATCH);
    EXPECT_EQ(EVAL_NODE, nullptr);
}

}  // namespace
}  // namespace brindle
