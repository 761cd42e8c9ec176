#include "prolog/stream.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace brindle {
namespace {

// Writes down what the stream says, one entry a call.
struct Recorder final : StreamClient {
    std::vector<std::string> log;

    void plain_text(std::string_view bytes) override { log.push_back("text:" + std::string(bytes)); }
    void message(std::string_view text) override { log.push_back("message:" + std::string(text)); }
    void ready() override { log.push_back("ready"); }
    void go_on() override { log.push_back("go on"); }
    void no_end_message() override { log.push_back("unfinished"); }
};

class Stream : public ::testing::Test {
  protected:
    std::vector<std::string> fed(std::initializer_list<std::string_view> chunks) {
        recorder.log.clear();
        for (const std::string_view chunk : chunks) stream.feed(chunk);
        return recorder.log;
    }

    using Log = std::vector<std::string>;
    Recorder recorder;
    PrologStream stream{recorder};
};

TEST_F(Stream, text_and_prompt) {
    EXPECT_EQ(fed({"X = a\n\n?- "}), (Log{"text:X = a\n\n", "ready", "go on"}));
    EXPECT_EQ(fed({"?- "}), (Log{"ready", "go on"}));
    EXPECT_EQ(fed({"?- ?- "}), (Log{"text:?- ", "ready", "go on"}));
    EXPECT_EQ(fed({"a ?- b"}), Log{"text:a ?- b"});
    EXPECT_EQ(fed({"a?-", " "}), (Log{"text:a?-", "text: "}));
    EXPECT_EQ(fed({""}), Log{});
}

TEST_F(Stream, messages_in_one_chunk) {
    EXPECT_EQ(fed({"abcbegin message word end messagedef"}), (Log{"text:abc", "message: word ", "text:def"}));
    EXPECT_EQ(fed({"begin messageaend messagebegin messagebend message?- "}),
              (Log{"message:a", "message:b", "ready", "go on"}));
    EXPECT_EQ(fed({"begin messageend message"}), Log{"message:"});
    EXPECT_EQ(fed({"end messagebegin messagebegin messageend message"}),
              (Log{"text:end message", "message:begin message"}));
    EXPECT_EQ(fed({std::string_view("a\0begin messageb\0cend message", 29)}),
              (Log{std::string("text:a\0", 7), std::string("message:b\0c", 11)}));
}

TEST_F(Stream, a_message_over_several_chunks) {
    EXPECT_EQ(fed({"begin message"}), Log{});
    EXPECT_EQ(stream.bytes_held(), begin_marker.size());
    EXPECT_EQ(fed({"f(x", ",y)", ".end message?- "}), (Log{"message:f(x,y).", "ready", "go on"}));
    EXPECT_EQ(stream.bytes_held(), 0u);
    const std::string long_text(100000, 'x');
    EXPECT_EQ(fed({"begin message", long_text, "end message"}), Log{"message:" + long_text});
}

TEST_F(Stream, a_message_cut_off_by_the_prompt_is_dropped) {
    EXPECT_EQ(fed({"abegin messagehalf", "?- "}), (Log{"text:a", "ready", "unfinished"}));
    EXPECT_EQ(fed({"b?- "}), (Log{"text:b", "ready", "go on"}));
    EXPECT_EQ(fed({"begin messagehalf?- "}), (Log{"ready", "unfinished"}));
    EXPECT_EQ(stream.bytes_held(), 0u);
}

TEST_F(Stream, a_marker_split_over_two_chunks_is_text) {
    EXPECT_EQ(fed({"begin mess", "age x"}), (Log{"text:begin mess", "text:age x"}));
    EXPECT_EQ(fed({"begin messagea end mes", "sage bend message"}), Log{"message:a end message b"});
}

TEST_F(Stream, a_new_child_begins_anew) {
    fed({"begin messagehalf"});
    stream.reset();
    EXPECT_EQ(fed({"text"}), Log{"text:text"});
}

TEST(marker_tail, is_the_longest_beginning_of_a_marker) {
    EXPECT_EQ(marker_tail("abc"), 0u);
    EXPECT_EQ(marker_tail("abc begin messag"), 12u);
    EXPECT_EQ(marker_tail("begin message"), 0u);
    EXPECT_EQ(marker_tail("begin messagend mess"), 0u);
    EXPECT_EQ(marker_tail("begin messageend mess"), 8u);
    EXPECT_EQ(marker_tail("x end messag"), 10u);
    EXPECT_EQ(marker_tail("x?"), 1u);
    EXPECT_EQ(marker_tail("x?- "), 3u);
    EXPECT_EQ(marker_tail("b"), 1u);
    EXPECT_EQ(marker_tail(""), 0u);
}

}  // namespace
}  // namespace brindle
