#include "base/backlog.hpp"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(backlog, pieces_end_between_characters) {
    Backlog backlog;
    backlog.append("caf\xC3");
    EXPECT_EQ(backlog.take(), "caf");
    EXPECT_EQ(backlog.take(), "");
    backlog.append("\xA9" + std::string(70'000, 'x'));
    EXPECT_EQ(backlog.take().size(), std::size_t{1} << 16);
    EXPECT_EQ(backlog.size(), 70'002 - (std::size_t{1} << 16));
}

TEST(backlog, a_flood_keeps_whole_lines_at_its_end) {
    Backlog backlog;
    for (int n = 0; n < 300'000; ++n) backlog.append("line " + std::to_string(n) + "\n");
    EXPECT_LE(backlog.size(), std::size_t{2} << 20);
    std::string all;
    for (std::string piece = backlog.take(); !piece.empty(); piece = backlog.take()) all += piece;
    EXPECT_TRUE(all.starts_with("line ") && all.ends_with("line 299999\n"));
}

}  // namespace
}  // namespace brindle
