// Sessions with real children: `cat`, which says whatever it is told to say, scripts that stand in for
// Prolog, and SWI-Prolog with our bridge where it is installed.
#include "prolog/session.hpp"

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <ctime>
#include <fstream>

#include "edit/label_rules.hpp"
#include "model/path.hpp"
#include "model/tree_view.hpp"
#include "prolog/child_command.hpp"
#include "prolog/expansion.hpp"
#include "prolog/poll_host.hpp"
#include "propose/node_run.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

// A main window without a window.
struct Host final : PollHost {
    void set_query_label(std::string_view text) override { label = text; }
    void set_query_active(bool is_active) override { active = is_active; }
    void set_query_value(std::string_view text) override { value = text; }
    void show_foot(TreeView *view, std::string_view text) override { (view ? window_foot : foot) = text; }
    void insert_output(std::string_view bytes) override {
        output_size += bytes.size();
        if (output_size < 1000000) output += bytes;
    }
    void notice(std::string_view text) override {
        notices.emplace_back(text);
        if (during_notice) during_notice();
    }
    void notice_at_query(std::string_view text) override { notices.emplace_back(text); }
    void prompt_at_node(Node *node, std::string_view text, TreeView *) override {
        notices.push_back(path_of(node) + ": " + std::string(text));
    }

    std::string label, value, foot, window_foot, output;
    std::vector<std::string> notices;
    std::function<void()> during_notice;
    std::size_t output_size = 0;
    bool active = false;
};

class Session : public ::testing::Test {
  protected:
    using State = PrologSession::State;

    // A child that reads the start-up line, prompts, and then goes on as the script says.
    bool start_script(const std::string &script) {
        return session.start({"sh", "-c", "read start; printf '?- '; " + script}) && ready();
    }
    bool start_swipl() {
        return session.start({"swipl", "-q", find_bridge(), "--", "none.trees"}) && ready();
    }
    bool ready() {
        return host.run_until([this] { return host.active && !session.is_busy(); }, 20);
    }
    bool notices(std::size_t count) {
        return host.run_until([this, count] { return host.notices.size() >= count; }, 20);
    }
    // What a query adds to the output window.
    std::string answer(const std::string &query) {
        host.output.clear();
        session.type_query(query);
        EXPECT_EQ(host.label, "pending...");
        EXPECT_TRUE(ready());
        return host.output;
    }
    void let_time_pass(double seconds) {
        host.run_until([] { return false; }, seconds);
    }
    // A run over the corpus whose events are in `log`.
    std::shared_ptr<NodeRun> make_run(NodeRunKind kind, std::vector<int> trees) {
        NodeRun::Hooks hooks;
        hooks.begin_tree = [this](int tree) { log += "tree " + std::to_string(tree) + " "; };
        hooks.send_query = [this](Node *node) {
            log += path_of(node) + " ";
            return session.send_query(std::string(node->sem()->view()) + "\n", nullptr);
        };
        hooks.refused = [this](Node *node, std::string_view) { log += path_of(node) + " refused "; };
        hooks.show = [this](Node *, std::string_view message) { log += std::string(message) + " "; };
        hooks.finish = [this](int tree) { log += "end " + std::to_string(tree); };
        hooks.broken_off = [this] { log += "broken off"; };
        return std::make_shared<NodeRun>(corpus, kind, std::move(trees), false, std::move(hooks));
    }

    test::TestCorpus corpus{"* ( (S|old (NP|old2 N/towns)) )\n( (S|next N/x) )"};
    Host host;
    PrologSession session{host, corpus};
    Node *root = corpus.at(".");
    std::string log;
};

// ---------------------------------------------------------------- queries and their answers

#define NEEDS_SWIPL() \
    if (!is_on_path("swipl") || find_bridge().empty()) GTEST_SKIP() << "no SWI-Prolog here"

TEST_F(Session, query_and_answer) {
    EXPECT_EQ(session.state(), State::none);
    ASSERT_TRUE(session.start({"sh", "-c", R"(read start; printf 'got %s\n?- ' "$start"; while read q; do
        printf 'answer to %s\n\n?- ' "$q"; done)"}));
    EXPECT_EQ(session.state(), State::starting);
    EXPECT_FALSE(host.active);
    ASSERT_TRUE(ready());
    EXPECT_EQ(session.state(), State::idle);
    EXPECT_EQ(host.output, "got interactive(no),system(my_checker).\n");
    host.value = "typed";
    EXPECT_EQ(answer("typed"), "answer to typed\n\n");
    EXPECT_EQ(host.value, "");
    EXPECT_EQ(host.label, "query:  ?-");
    const std::string long_query(500000, 'x');  // more than a pipe holds
    EXPECT_EQ(answer(long_query).size(), long_query.size() + std::string("answer to \n\n").size());
}

TEST_F(Session, swipl_answers_and_sends_messages) {
    NEEDS_SWIPL();
    ASSERT_TRUE(start_swipl());
    EXPECT_EQ(answer("X = a, member(Y, [1,2])."), "X = a\nY = 1\ntrue.\n\n");
    EXPECT_EQ(answer("no_such_thing."), "ERROR: Unknown procedure: no_such_thing/0\n\n");
    EXPECT_EQ(answer("write(before), message('a text'), write(after)"), "beforeafter\ntrue.\n\n");
    EXPECT_EQ(host.notices, std::vector<std::string>{"a text"});
    corpus.tag(".", "g(X,'B_c')");
    ASSERT_TRUE(session.filter(root, {"X = 'a b', message"}, nullptr));
    ASSERT_TRUE(ready());
    EXPECT_EQ(text_of(root->sem()), "g('a_b','B_c')");
}

// Every marker is found, wherever a chunk ends in a long output, and no text gets lost.
TEST_F(Session, messages_inside_long_output) {
    NEEDS_SWIPL();
    ASSERT_TRUE(start_swipl());
    host.output_size = 0;
    answer("forall(between(1, 3000, I), (forall(between(1, 7, _), write('0123456789')), message(I))), nl.");
    ASSERT_EQ(host.notices.size(), 3000u);
    EXPECT_EQ(host.notices.back(), "3000");
    EXPECT_EQ(host.output_size, 3000u * 70 + std::string("\ntrue.\n\n").size());
}

TEST_F(Session, ten_megabytes_without_a_newline) {
    ASSERT_TRUE(start_script("read q; head -c 10000000 /dev/zero | tr '\\0' x; printf '?- '; read q"));
    host.output_size = 0;
    answer("go");
    EXPECT_EQ(host.output_size, 10000000u);
}

// ---------------------------------------------------------------- children that end or do not behave

TEST_F(Session, exit_restarts_with_two_notices) {
    NEEDS_SWIPL();
    ASSERT_TRUE(start_swipl());
    answer("assertz(p(1)).");
    session.type_query("write(bye), halt(3).");
    ASSERT_TRUE(notices(2));
    EXPECT_TRUE(session.is_busy()) << "nothing is sent before the new child's first prompt";
    ASSERT_TRUE(ready());
    EXPECT_NE(host.output.find("bye"), std::string::npos);
    EXPECT_EQ(host.notices[0], "\nProlog terminated with status 3\n\nI just wish you wouldn't do that...");
    EXPECT_EQ(host.notices[1].substr(0, 23), "You just exited prolog.");
    EXPECT_EQ(answer("X = 1."), "X = 1\ntrue.\n\n");
    EXPECT_EQ(host.notices.size(), 2u);
    session.type_query("halt(4).");
    ASSERT_TRUE(notices(4)) << "one that has once been ready is started again and again";
    EXPECT_TRUE(ready());
}

TEST_F(Session, end_by_a_signal_leaves_the_field_usable) {
    ASSERT_TRUE(start_script("while read q; do [ $q = die ] && kill -9 $$; echo $q; printf '?- '; done"));
    corpus.tag(".", "die");
    session.drive(make_run(NodeRunKind::filter, {0}));
    EXPECT_NE(session.run(), nullptr);
    ASSERT_TRUE(host.run_until([this] { return !host.foot.empty(); }, 20));
    EXPECT_EQ(host.foot, "Prolog was ended by signal 9");
    EXPECT_EQ(log, "tree 0 . broken off");
    EXPECT_EQ(session.run(), nullptr);
    EXPECT_TRUE(host.active);
    EXPECT_EQ(session.state(), State::ended);
    EXPECT_TRUE(host.notices.empty());
    TreeView window;
    EXPECT_FALSE(session.filter(root, {}, &window));
    EXPECT_EQ(host.window_foot, "No Prolog is running: Return in the query field starts one");
    EXPECT_EQ(session.claimed(), nullptr);
    EXPECT_EQ(host.label, PrologSession::idle_label);
    // Return starts a new child, which gets the query.
    host.output.clear();
    session.type_query("again");
    ASSERT_TRUE(host.run_until([this] { return host.output == "again\n"; }, 20));
    EXPECT_TRUE(ready());
}

TEST_F(Session, a_child_that_cannot_be_started_is_reported_once) {
    ASSERT_TRUE(session.start({"no-such-prolog-here"}));
    ASSERT_TRUE(notices(1));
    EXPECT_EQ(host.output, "no-such-prolog-here: command not found.\n");
    EXPECT_EQ(host.notices[0], "\nProlog terminated with status 255\n\nI just wish you wouldn't do that...");
    let_time_pass(0.2);
    EXPECT_EQ(host.notices.size(), 1u);
    EXPECT_TRUE(host.active);
    session.type_query("try again");
    ASSERT_TRUE(notices(2));
}

TEST_F(Session, a_child_that_always_ends_at_once_is_not_restarted_in_a_circle) {
    ASSERT_TRUE(session.start({"sh", "-c", "exit 4"}));
    ASSERT_TRUE(notices(3));
    let_time_pass(0.2);
    EXPECT_EQ(host.notices.size(), 3u);  // ended, restarted, ended
    EXPECT_TRUE(host.active);
}

TEST_F(Session, a_child_that_never_answers_blocks_nobody) {
    ASSERT_TRUE(start_script("exec sleep 60"));
    session.type_query("a question");
    EXPECT_TRUE(session.is_busy());
    const std::string long_query(300000, 'x');
    EXPECT_TRUE(session.send_query(long_query + "\n", nullptr));
    let_time_pass(0.1);
    EXPECT_TRUE(session.is_busy());
    EXPECT_EQ(host.label, "pending...");
}

TEST_F(Session, a_child_that_has_closed_its_input) {
    ASSERT_TRUE(start_script("read q; exec <&-; echo closed; exec sleep 60"));
    session.type_query("go");
    ASSERT_TRUE(host.run_until([this] { return host.output == "closed\n"; }, 20));
    host.label.clear();
    EXPECT_FALSE(session.send_query("lost\n", nullptr));
    EXPECT_EQ(host.foot, "Cannot write to Prolog: Broken pipe");
    EXPECT_EQ(host.label, "");
}

TEST_F(Session, a_child_that_has_closed_its_output_is_not_watched_in_vain) {
    ASSERT_TRUE(start_script("exec >&-; exec sleep 60"));
    let_time_pass(0.05);
    const std::clock_t before = std::clock();
    let_time_pass(0.5);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 10);
}

TEST_F(Session, a_child_that_ends_or_goes_on_writing_while_a_notice_is_up) {
    ASSERT_TRUE(
        start_script("read q; printf 'begin messageaend messagerest'; sleep 0.1; printf more; exit 5"));
    host.during_notice = [this] {
        let_time_pass(0.3);  // the notice's own loop
        EXPECT_EQ(host.output, "");
        EXPECT_EQ(host.notices.size(), 1u);
    };
    session.type_query("go");
    ASSERT_TRUE(notices(3));
    EXPECT_EQ(host.output, "restmore");
    EXPECT_EQ(host.notices[1].substr(0, 33), "\nProlog terminated with status 5\n");
}

TEST_F(Session, quits_and_the_child_is_waited_for) {
    ASSERT_TRUE(start_script("read q; exit 0"));
    session.quit();
    let_time_pass(0.1);
    EXPECT_TRUE(host.notices.empty());
    EXPECT_EQ(session.state(), State::none);
}

// The timer that would have written the rest of the query comes when the session has gone.
TEST_F(Session, that_is_gone_is_not_called) {
    const auto other = std::make_unique<PrologSession>(host, corpus);
    std::unique_ptr<PrologSession> gone = std::make_unique<PrologSession>(host, corpus);
    ASSERT_TRUE(gone->start({"sleep", "60"}));
    ASSERT_TRUE(gone->write_line(std::string(300000, 'x')));
    gone.reset();
    let_time_pass(0.1);
    EXPECT_EQ(corpus.listeners.size(), 2u);
}

// ---------------------------------------------------------------- who gets a message

// `cat` is the child: what is written to it, it says.
class Messages : public Session {
  protected:
    Messages() {
        EXPECT_TRUE(session.start({"cat"}));
        session.write_line("?- ");
        EXPECT_TRUE(ready());
    }
    // Lets the child say it, and waits until it is heard.
    void say(const std::string &bytes) {
        host.output.clear();
        session.write_line(bytes + "|");
        EXPECT_TRUE(host.run_until([this] { return host.output.ends_with("|"); }, 20));
    }
    void send_message(const std::string &text) { say("begin message" + text + "end message"); }
    // The prompt has to be the last that is said.
    void prompt() {
        host.value = "old";
        session.write_line("?- ");
        EXPECT_TRUE(host.run_until([this] { return host.value.empty(); }, 20));
    }
    // What "filter" makes of the root's tag, when Prolog answers with that message.
    std::string_view filtered(const std::string &message) {
        host.notices.clear();
        EXPECT_TRUE(session.filter(root, {}, nullptr));
        EXPECT_EQ(session.claimed(), root);
        send_message(message);
        EXPECT_EQ(session.claimed(), nullptr);
        return text_of(root->sem());
    }
};

TEST_F(Messages, filter_gives_the_node_its_tag) {
    EXPECT_EQ(filtered("f(x, y)"), "f(x,_y)");
    EXPECT_EQ(filtered(" two "), "_two_");
    EXPECT_EQ(filtered("\ng(x)\n"), "g(x)");
    EXPECT_EQ(corpus.sem("g(x)")->checked_count, 1) << "the tree is checked";
    EXPECT_TRUE(host.notices.empty());
    EXPECT_EQ(filtered(""), "");
    send_message("to nobody");
    EXPECT_EQ(host.notices, std::vector<std::string>{"to nobody"});
}

TEST_F(Messages, what_cannot_be_a_tag_is_refused_at_the_node) {
    for (const std::string &text : {std::string("a/b"), std::string("f(x"), std::string("a)("),
                                    std::string("a\tb"), std::string("a\nb"), std::string(1024, 'x')}) {
        EXPECT_EQ(filtered(text), "old") << text;
        EXPECT_EQ(host.notices, std::vector<std::string>{".: Prolog's answer cannot be the tag:\n" +
                                                         refuse_tag(text).value()});
    }
    EXPECT_EQ(filtered(std::string(1023, 'x')), std::string(1023, 'x'));
}

TEST_F(Messages, a_claim_is_dropped_with_its_node_and_its_window) {
    Node *const mother = corpus.at("1");
    TreeView window;
    ASSERT_TRUE(session.filter(mother, {}, &window));
    session.drop_claim_of(nullptr);
    session.drop_claim_below(corpus.at("1.1"));
    EXPECT_FALSE(replace_subtree(corpus, corpus.at("1.1"), "N/villages "));
    EXPECT_EQ(session.claimed(), mother);
    EXPECT_FALSE(replace_subtree(corpus, root, "(S|new (NP|new N/cities))"));
    EXPECT_EQ(session.claimed(), nullptr);
    send_message("late");
    EXPECT_EQ(corpus.text(), "(S|new (NP|new N/cities))");
    EXPECT_EQ(host.notices, std::vector<std::string>{"late"});
    ASSERT_TRUE(session.filter(corpus.at("1"), {}, &window));
    session.drop_claim_of(&window);
    EXPECT_EQ(session.claimed(), nullptr);
}

TEST_F(Messages, prompts_drive_a_filter_run) {
    session.drive(make_run(NodeRunKind::filter, {0, 1}));
    EXPECT_TRUE(session.is_busy());
    send_message("a(b");
    send_message("new");
    EXPECT_EQ(session.run()->awaited(), root);
    EXPECT_EQ(text_of(root->sem()), "new");
    prompt();
    EXPECT_EQ(text_of(corpus.at("1")->sem()), "old2") << "an answer without a message";
    prompt();
    send_message("newer");
    prompt();
    EXPECT_EQ(log, "tree 0 . . refused 1 tree 1 . end 1");
    EXPECT_EQ(corpus.text(1), "(S|newer N/x)");
    EXPECT_EQ(session.run(), nullptr);
    send_message("late");
    prompt();
    EXPECT_EQ(host.notices, std::vector<std::string>{"late"});
}

TEST_F(Messages, an_evaluating_run_shows_them) {
    session.drive(make_run(NodeRunKind::evaluate, {1, 0}));
    send_message("one");
    prompt();
    send_message("two");
    session.run()->stop();
    send_message("three");
    prompt();
    EXPECT_EQ(log, "tree 1 . one tree 0 . two ");
    EXPECT_EQ(host.notices, std::vector<std::string>{"three"});
    EXPECT_EQ(corpus.text(), "(S|old (NP|old2 N/towns))");
}

TEST_F(Messages, a_run_goes_on_behind_a_tree_that_is_replaced_meanwhile) {
    session.drive(make_run(NodeRunKind::filter, {0, 1}));
    prompt();
    EXPECT_FALSE(replace_subtree(corpus, corpus.at("1"), "(NP|fresh N/towns)"));
    send_message("late");
    prompt();
    prompt();
    EXPECT_EQ(log, "tree 0 . 1 tree 1 . end 1");
    EXPECT_EQ(corpus.text(), "(S|old (NP|fresh N/towns))");
    EXPECT_EQ(host.notices, std::vector<std::string>{"late"});
}

TEST_F(Messages, a_prompt_inside_one_drops_it_and_whoever_waited) {
    const std::string text =
        "Error:\n\"begin message\" encountered in prolog output,\nwithout matching \"end message\"";
    ASSERT_TRUE(session.filter(root, {}, nullptr));
    session.write_line("begin messagehalf");
    prompt();
    EXPECT_EQ(host.notices, std::vector<std::string>{text});
    EXPECT_EQ(session.claimed(), nullptr);
    session.drive(make_run(NodeRunKind::evaluate, {0, 1}));
    session.write_line("begin messagehalf");
    prompt();
    EXPECT_EQ(host.notices.size(), 2u);
    EXPECT_EQ(log, "tree 0 . broken off");
    prompt();
    EXPECT_EQ(log, "tree 0 . broken off");
    EXPECT_EQ(corpus.text(), "(S|old (NP|old2 N/towns))");
}

// ---------------------------------------------------------------- which Prolog

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
