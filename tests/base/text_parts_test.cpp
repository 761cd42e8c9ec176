#include "base/text_parts.hpp"

#include <atomic>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace brindle {
namespace {

// Every seventh part fills several buffers, some are empty.
std::string text_of_part(int part) {
    const std::size_t length =
        part % 7 == 3 ? 3 * TextBuffer::piece_size : static_cast<std::size_t>(part % 5);
    return std::string(length, static_cast<char>('a' + part % 26));
}

void write_bytewise(int part, TextBuffer &out) {
    for (const char c : text_of_part(part)) out << c;
}

struct Text : TextSink {
    bool write(std::string_view piece) override {
        EXPECT_FALSE(busy.exchange(true)) << "two calls at once";
        text += piece;
        busy = false;
        return text.size() <= most;
    }
    std::string text;
    std::size_t most = std::string::npos;
    std::atomic<bool> busy = false;
};

TEST(text_parts, arrive_in_their_order_and_one_at_a_time) {
    for (const int n : {0, 1, 2, 40}) {
        std::string expected;
        for (int i = 0; i < n; ++i) expected += text_of_part(i);
        Text sink;
        EXPECT_TRUE(write_parts(sink, n, write_bytewise));
        EXPECT_TRUE(sink.text == expected) << n;
    }
}

TEST(text_parts, a_sink_that_fails_stops_the_work) {
    Text sink;
    sink.most = 0;
    std::atomic<int> made = 0;
    const auto count_and_write = [&](int part, TextBuffer &out) {
        ++made;
        write_bytewise(part, out);
    };
    EXPECT_FALSE(write_parts(sink, 100000, count_and_write));
    EXPECT_LT(made, 1000);
    EXPECT_EQ(sink.text, "b") << "the first part that is not empty, and nothing behind it";
}

TEST(text_parts, a_part_that_cannot_be_made_ends_all_in_its_error) {
    Text sink;
    const auto fail_at_9 = [](int part, TextBuffer &out) {
        if (part == 9) throw std::runtime_error("no memory");
        write_bytewise(part, out);
    };
    EXPECT_THROW(write_parts(sink, 20, fail_at_9), std::runtime_error);
}

}  // namespace
}  // namespace brindle
