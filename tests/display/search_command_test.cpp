#include "display/search_command.hpp"

#include <gtest/gtest.h>

#include <deque>

#include <fmt/format.h>

#include "model/path.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

// Answers as it has been told to, and remembers what happened.
struct SearchCommandTest : testing::Test, SearchHost {
    void tell(std::string_view message, bool) override { log += fmt::format("[{}]", message); }
    LabelKind term_or_nonterm(const std::string &) override { return LabelKind::TERM; }
    void show(const CorpusSearch::Match &match) override {
        log += fmt::format(" {}:{}", match.tree, path_of(match.node));
    }
    Answer ask_at(const Node *, Question question) override {
        log += question == Question::found ? "" : question == Question::replace ? " replace?" : " more?";
        const Answer answer = answers.empty() ? stop : answers.front();
        if (!answers.empty()) answers.pop_front();
        return answer;
    }
    bool may_go_on() override { return ++steps < last_step; }
    void arrived() override {}

    int run(SearchAction action, bool prompts = true) {
        return run_search(corpus,
                          {.action = action,
                           .request = {.syn = "", .lex = "", .sem = "x"},
                           .with = "y",
                           .prompts = prompts,
                           .shown_tree = 7},
                          *this);
    }

    test::TestCorpus corpus{"( (S|x NP|x/a) )\n( (S NP|x/b) )"};
    std::deque<Answer> answers;
    std::string log;
    int steps = 0, last_step = 100;
};

TEST_F(SearchCommandTest, goes_from_match_to_match_and_back) {
    answers = {again, again, go_back};
    EXPECT_EQ(run(SearchAction::search), 7);
    EXPECT_EQ(log, " 0:. 0:1 1:1");
    log.clear();
    answers = {again, again, again};
    EXPECT_EQ(run(SearchAction::search), -1);
    EXPECT_EQ(log, " 0:. 0:1 1:1[Not found]");
}

TEST_F(SearchCommandTest, replaces_what_is_agreed_to) {
    answers = {no, again, yes, stop};
    EXPECT_EQ(run(SearchAction::replace), -1);
    EXPECT_EQ(log, " 0:. replace? more? 0:1 replace? more?");
    EXPECT_EQ(corpus.text(0), "(S|x NP|y/a)");
}

TEST_F(SearchCommandTest, replaces_all_in_silence_until_it_is_ended) {
    last_step = 3;
    EXPECT_EQ(run(SearchAction::replace_all, false), 0);
    EXPECT_EQ(corpus.text(0) + corpus.text(1), "(S|y NP|y/a)(S NP|x/b)");
    last_step = 100;
    EXPECT_EQ(run(SearchAction::replace_all, false), 1);
    EXPECT_EQ(corpus.text(1), "(S NP|y/b)");
    EXPECT_EQ(log, "");
}

}  // namespace
}  // namespace brindle
