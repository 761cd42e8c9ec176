#include "base/input_file.hpp"

#include <unistd.h>

#include <cerrno>

#include <gtest/gtest.h>

#include "support/files.hpp"

namespace brindle {
namespace {

TEST(input_file, says_why_when_a_file_is_cut_short_while_it_is_read) {
    const test::Folder folder;
    const std::string name = folder.file("long");
    test::put(name, std::string(1 << 20, 'x'));
    const auto read_a_file_that_is_cut_short = [&] {
        const InputFile file(name);
        if (truncate(name.c_str(), 10) != 0) _exit(2);
        _exit(file.text().back() == 'x' ? 3 : 4);
    };
    EXPECT_EXIT(read_a_file_that_is_cut_short(), testing::ExitedWithCode(1),
                "cut short while it was being read");
}

TEST(input_file, tells_what_cannot_be_read) {
    const test::Folder folder;
    EXPECT_FALSE(InputFile(folder.file("missing")).ok());
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(InputFile(folder.file("")).ok());
    EXPECT_EQ(errno, EISDIR);
    test::put(folder.file("empty"), "");
    const InputFile empty(folder.file("empty"));
    EXPECT_TRUE(empty.ok());
    EXPECT_EQ(empty.text(), "");
}

}  // namespace
}  // namespace brindle
