// The connection with real children: scripts that stand in for Prolog, and SWI-Prolog with our bridge where
// it is installed.
#include "prolog/pipe.hpp"

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <fstream>

#include "model/frontend.hpp"
#include "model/request.hpp"
#include "prolog/child_command.hpp"
#include "prolog/poll_host.hpp"
#include "support/corpus.hpp"

namespace brindle {
namespace {

// A main window without a window.
struct Host final : PollHost {
    void set_query_label(std::string_view text) override { label = text; }
    void set_query_active(bool is_active) override { active = is_active; }
    void set_query_value(std::string_view text) override { value = text; }
    void show_query_foot(std::string_view text) override { foot = text; }
    void insert_output(std::string_view bytes) override {
        output_size += bytes.size();
        if (output_size < 1000000) output += bytes;
    }
    void notice(std::string_view text) override {
        notices.emplace_back(text);
        if (during_notice) during_notice();
    }
    void notice_at_query(std::string_view text) override { notices.emplace_back(text); }
    void stop_batch(TreeView *) override {
        BATCH = false;
        ++stopped;
    }
    void go_on_filtering() override { ++filtering_steps; }

    std::string label, value, foot, output;
    std::vector<std::string> notices;
    std::function<void()> during_notice;
    std::size_t output_size = 0;
    bool active = false;
    int stopped = 0;
    int filtering_steps = 0;
};

class Child : public ::testing::Test {
  protected:
    ~Child() override { reset_prolog(); }

    // A child that reads the start-up line, prompts, and then goes on as the script says.
    bool start_script(const std::string &script) {
        return start({"sh", "-c", "read start; printf '?- '; " + script}) && ready();
    }
    bool start(const std::vector<std::string> &command) { return start_prolog(host, command); }
    bool start_swipl() { return start({"swipl", "-q", find_bridge(), "--", "none.trees"}) && ready(); }
    bool ready() {
        return host.run_until([this] { return host.active && prolog_is_idle(); }, 20);
    }
    bool notices(std::size_t count) {
        return host.run_until([this, count] { return host.notices.size() >= count; }, 20);
    }
    // What a query adds to the output window.
    std::string answer(const std::string &query) {
        host.output.clear();
        commando(query);
        EXPECT_EQ(host.label, "pending...");
        EXPECT_TRUE(ready());
        return host.output;
    }
    void let_time_pass(double seconds) {
        host.run_until([] { return false; }, seconds);
    }

    test::Corpus corpus{"( (S|f(a) NP/towns) )"};
    Host host;
};

#define NEEDS_SWIPL() \
    if (!is_on_path("swipl") || find_bridge().empty()) GTEST_SKIP() << "no SWI-Prolog here"

TEST_F(Child, query_and_answer) {
    ASSERT_TRUE(start({"sh", "-c", R"(read start; printf 'got %s\n?- ' "$start"; while read q; do
        printf 'answer to %s\n\n?- ' "$q"; done)"}));
    EXPECT_FALSE(host.active);
    ASSERT_TRUE(ready());
    EXPECT_EQ(host.output, "got interactive(no),system(my_checker).\n");
    host.value = "typed";
    EXPECT_EQ(answer("typed"), "answer to typed\n\n");
    EXPECT_EQ(host.value, "");
    EXPECT_EQ(host.label, "query:  ?-");
    const std::string long_query(500000, 'x');  // more than a pipe holds
    EXPECT_EQ(answer(long_query).size(), long_query.size() + std::string("answer to \n\n").size());
}

TEST_F(Child, swipl_answers_and_sends_messages) {
    NEEDS_SWIPL();
    ASSERT_TRUE(start_swipl());
    EXPECT_EQ(answer("X = a, member(Y, [1,2])."), "X = a\nY = 1\ntrue.\n\n");
    EXPECT_EQ(answer("no_such_thing."), "ERROR: Unknown procedure: no_such_thing/0\n\n");
    EXPECT_EQ(answer("write(before), message('a text'), write(after)"), "beforeafter\ntrue.\n\n");
    EXPECT_EQ(host.notices, std::vector<std::string>{"a text"});
    Node *root = corpus.at(".");
    FILTER_NODE = root;
    answer("message(g(X,'B c')).");
    EXPECT_EQ(text_of(root->sem), "g(X,'B_c')");
    EXPECT_EQ(FILTER_NODE, nullptr);
}

// Every marker is found, wherever a chunk ends in a long output, and no text gets lost.
TEST_F(Child, messages_inside_long_output) {
    NEEDS_SWIPL();
    ASSERT_TRUE(start_swipl());
    host.output_size = 0;
    answer("forall(between(1, 3000, I), (forall(between(1, 7, _), write('0123456789')), message(I))), nl.");
    ASSERT_EQ(host.notices.size(), 3000u);
    EXPECT_EQ(host.notices.back(), "3000");
    EXPECT_EQ(host.output_size, 3000u * 70 + std::string("\ntrue.\n\n").size());
}

TEST_F(Child, ten_megabytes_without_a_newline) {
    ASSERT_TRUE(start_script("read q; head -c 10000000 /dev/zero | tr '\\0' x; printf '?- '; read q"));
    host.output_size = 0;
    answer("go");
    EXPECT_EQ(host.output_size, 10000000u);
}

TEST_F(Child, exit_restarts_with_two_notices) {
    NEEDS_SWIPL();
    ASSERT_TRUE(start_swipl());
    answer("assertz(p(1)).");
    commando("write(bye), halt(3).");
    ASSERT_TRUE(notices(2));
    ASSERT_TRUE(ready());
    EXPECT_NE(host.output.find("bye"), std::string::npos);
    EXPECT_EQ(host.notices[0], "\nProlog terminated with status 3\n\nI just wish you wouldn't do that...");
    EXPECT_EQ(host.notices[1].substr(0, 23), "You just exited prolog.");
    EXPECT_EQ(answer("X = 1."), "X = 1\ntrue.\n\n");
    EXPECT_EQ(host.notices.size(), 2u);
}

TEST_F(Child, end_by_a_signal_leaves_the_field_usable) {
    ASSERT_TRUE(start_script("while read q; do [ $q = die ] && kill -9 $$; echo $q; printf '?- '; done"));
    BATCH = true;
    FILTER_NODE = corpus.at(".");
    commando("die");
    ASSERT_TRUE(host.run_until([this] { return !host.foot.empty(); }, 20));
    EXPECT_EQ(host.foot, "Prolog was ended by signal 9");
    EXPECT_EQ(host.stopped, 1);
    EXPECT_EQ(FILTER_NODE, nullptr);
    EXPECT_TRUE(host.active);
    EXPECT_TRUE(prolog_is_idle());
    EXPECT_EQ(prolog_io[1], -1);
    EXPECT_EQ(prolog_io[2], -1);
    EXPECT_TRUE(host.notices.empty());
    EXPECT_FALSE(send_query("lost\n", nullptr));
    EXPECT_TRUE(prolog_is_idle());
    // Return starts a new child, which gets the query.
    host.output.clear();
    commando("again");
    ASSERT_TRUE(host.run_until([this] { return host.output == "again\n"; }, 20));
    EXPECT_TRUE(ready());
}

TEST_F(Child, that_cannot_be_started_is_reported_once) {
    ASSERT_TRUE(start({"no-such-prolog-here"}));
    ASSERT_TRUE(notices(1));
    EXPECT_EQ(host.output, "no-such-prolog-here: command not found.\n");
    EXPECT_EQ(host.notices[0], "\nProlog terminated with status 255\n\nI just wish you wouldn't do that...");
    let_time_pass(0.2);
    EXPECT_EQ(host.notices.size(), 1u);
    EXPECT_TRUE(host.active);
    commando("try again");
    ASSERT_TRUE(notices(2));
}

TEST_F(Child, that_always_ends_at_once_is_not_restarted_in_a_circle) {
    ASSERT_TRUE(start({"sh", "-c", "exit 4"}));
    ASSERT_TRUE(notices(3));
    let_time_pass(0.2);
    EXPECT_EQ(host.notices.size(), 3u);  // ended, restarted, ended
    EXPECT_TRUE(host.active);
}

TEST_F(Child, that_never_answers_blocks_nobody) {
    ASSERT_TRUE(start_script("exec sleep 60"));
    commando("a question");
    EXPECT_TRUE(prolog_is_busy());
    const std::string long_query(300000, 'x');
    EXPECT_TRUE(send_query(long_query + "\n", nullptr));
    let_time_pass(0.1);
    EXPECT_TRUE(prolog_is_busy());
    EXPECT_EQ(host.label, "pending...");
}

TEST_F(Child, that_has_closed_its_input) {
    ASSERT_TRUE(start_script("read q; exec <&-; echo closed; exec sleep 60"));
    commando("go");
    ASSERT_TRUE(host.run_until([this] { return host.output == "closed\n"; }, 20));
    host.label.clear();
    EXPECT_FALSE(send_query("lost\n", nullptr));
    EXPECT_EQ(host.foot, "Cannot write to Prolog: Broken pipe");
    EXPECT_EQ(host.label, "");
}

TEST_F(Child, that_has_closed_its_output_is_not_watched_in_vain) {
    ASSERT_TRUE(start_script("exec >&-; exec sleep 60"));
    let_time_pass(0.05);
    const std::clock_t before = std::clock();
    let_time_pass(0.5);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 10);
}

TEST_F(Child, that_ends_or_goes_on_writing_while_a_notice_is_up) {
    ASSERT_TRUE(
        start_script("read q; printf 'begin messageaend messagerest'; sleep 0.1; printf more; exit 5"));
    host.during_notice = [this] {
        let_time_pass(0.3);  // the notice's own loop
        EXPECT_EQ(host.output, "");
        EXPECT_EQ(host.notices.size(), 1u);
    };
    commando("go");
    ASSERT_TRUE(notices(3));
    EXPECT_EQ(host.output, "restmore");
    EXPECT_EQ(host.notices[1].substr(0, 33), "\nProlog terminated with status 5\n");
}

TEST_F(Child, prompts_drive_the_batch) {
    ASSERT_TRUE(start_script("while read q; do printf 'begin message%send message?- ' $q; done"));
    Node *root = corpus.at(".");
    BATCH = true;
    FILTER_NODE = root;
    ASSERT_TRUE(send_query("new\n", nullptr));
    ASSERT_TRUE(host.run_until([this] { return host.filtering_steps == 1; }, 20));
    EXPECT_EQ(text_of(root->sem), "new");
}

TEST_F(Child, quits_and_is_waited_for) {
    ASSERT_TRUE(start_script("read q; exit 0"));
    quit_prolog();
    let_time_pass(0.1);
    EXPECT_TRUE(host.notices.empty());
    EXPECT_EQ(prolog_io[1], -1);
}

TEST(child_command, words) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(command_words("swipl -q  'my file.pl' \"\" a'b c'd"),
              (Words{"swipl", "-q", "my file.pl", "", "ab cd"}));
    EXPECT_EQ(command_words(" \t"), Words{});
}

TEST(child_command, comes_from_the_environment_or_from_what_is_installed) {
    const std::string path = getenv("PATH");
    setenv("BRINDLE_PROLOG", "my prolog", 1);
    EXPECT_EQ(default_child("towns"), (std::vector<std::string>{"my", "prolog"}));
    setenv("BRINDLE_PROLOG", " ", 1);
    setenv("PATH", "/no/such/folder", 1);
    EXPECT_EQ(default_child("towns"), std::vector<std::string>{"cat"});
    setenv("PATH", path.c_str(), 1);
    unsetenv("BRINDLE_PROLOG");
    if (is_on_path("swipl")) {
        ASSERT_EQ(default_child("towns").size(), 5u);
        EXPECT_TRUE(std::ifstream(default_child("towns")[2]).good());
    }
}

}  // namespace
}  // namespace brindle
