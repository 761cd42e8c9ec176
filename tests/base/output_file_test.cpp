#include "base/output_file.hpp"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include <gtest/gtest.h>

#include "support/files.hpp"

namespace {

// What was flushed to disk: names, each with the number of its bytes if it is a file.
std::vector<std::string> flushed;
int flush_fault = 0;

}  // namespace

// Takes the place of the system's: the test program hears of every flush, and can let it fail.
extern "C" int fsync(int fd) {
    namespace fs = std::filesystem;
    std::error_code none;
    const fs::path name = fs::read_symlink("/proc/self/fd/" + std::to_string(fd), none);
    flushed.push_back(fs::is_regular_file(name, none)
                          ? name.string() + ' ' + std::to_string(fs::file_size(name))
                          : name.string());
    errno = flush_fault;
    return flush_fault ? -1 : static_cast<int>(syscall(SYS_fsync, fd));
}

namespace brindle {
namespace {

using test::contents;
using test::Folder;
using test::LongestFile;
using test::put;
namespace fs = std::filesystem;

mode_t mode_of(const std::string &file) {
    struct stat status = {};
    return stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

TEST(output_file, an_uncommitted_file_leaves_nothing_behind) {
    Folder folder;
    put("old", "old");
    {
        OutputFile file("old"), other("new");
        EXPECT_TRUE(file.write("half") && other.write("half") && other.complete());
        EXPECT_EQ(folder.files(), 3);  // two unfinished ones beside the old one
    }
    EXPECT_EQ(contents("old"), "old");
    EXPECT_EQ(folder.files(), 1);
}

TEST(output_file, is_flushed_before_it_takes_its_place_and_the_folder_afterwards) {
    Folder folder;
    put("file", "old");
    const std::string place = fs::canonical(folder.path).string();
    OutputFile file("file");
    EXPECT_TRUE(file.write("whole"));
    flushed.clear();
    EXPECT_TRUE(file.commit());
    ASSERT_EQ(flushed.size(), 2u);
    EXPECT_TRUE(flushed[0].starts_with(place + "/file.") && flushed[0].ends_with(" 5")) << flushed[0];
    EXPECT_EQ(flushed[1], place);
    OutputFile lost("file");
    flush_fault = EIO;
    EXPECT_FALSE(lost.write("new") && lost.commit());
    flush_fault = 0;
    EXPECT_EQ(lost.error(), "Input/output error");
    EXPECT_EQ(contents("file"), "whole");
}

TEST(output_file, follows_links_and_keeps_permissions) {
    Folder folder;
    fs::create_directory("sub");
    put("sub/real", "old");
    chmod("sub/real", 0640);
    fs::create_symlink("sub/link", "first");
    fs::create_symlink("real", "sub/link");
    fs::create_symlink("sub/none", "dangling");
    OutputFile file("first"), fresh("dangling");
    EXPECT_TRUE(file.write("new") && file.commit());
    EXPECT_TRUE(fresh.write("fresh") && fresh.commit());
    EXPECT_TRUE(fs::is_symlink("first") && fs::is_symlink("sub/link") && fs::is_symlink("dangling"));
    EXPECT_EQ(contents("sub/real"), "new");
    EXPECT_EQ(mode_of("sub/real"), 0640u);
    EXPECT_EQ(contents("sub/none"), "fresh");
    fs::create_symlink("circle", "circle");
    EXPECT_EQ(OutputFile("circle").error(), "Too many levels of symbolic links");
}

TEST(output_file, faults_carry_the_system_s_text) {
    Folder folder;
    EXPECT_EQ(OutputFile("none/file").error(), "No such file or directory");
    EXPECT_EQ(OutputFile("").error(), "No such file or directory");
    EXPECT_EQ(OutputFile(".").error(), "Is a directory");
    OutputFile full("/dev/full");
    EXPECT_TRUE(full.ok());
    EXPECT_FALSE(full.write("x") && full.commit());
    EXPECT_EQ(full.error(), "No space left on device");
    put("old", "old");
    OutputFile long_one("old");
    {
        const LongestFile longest(100);
        long_one.write(std::string(1000, 'x'));
        EXPECT_FALSE(long_one.commit());
    }
    EXPECT_EQ(long_one.error(), "File too large");
    EXPECT_EQ(contents("old"), "old");
}

TEST(output_file, names_as_long_as_the_file_system_allows) {
    Folder folder;
    const std::string name(255, 'n');
    OutputFile file(name);
    EXPECT_TRUE(file.write("x") && file.commit()) << file.error();
    EXPECT_EQ(contents(name), "x");
    EXPECT_EQ(OutputFile(std::string(256, 'n')).error(), "File name too long");
}

TEST(output_file, a_pipe_is_written_straight) {
    Folder folder;
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    std::string got;
    std::thread reader([&] { got = contents("pipe"); });
    OutputFile file("pipe");
    EXPECT_TRUE(file.write("through") && file.commit());
    reader.join();
    EXPECT_EQ(got, "through");
    EXPECT_TRUE(fs::is_fifo("pipe"));
}

// Ends a child that holds an unfinished file.
void end_child(void (*end)()) {
    const pid_t child = fork();
    if (child == 0) {
        OutputFile file("file");
        remove_unfinished_files_on_signals(true);
        file.write(std::string(3 << 20, 'x'));
        end();
        _exit(99);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 1) << status;
}

TEST(output_file, is_removed_when_a_signal_or_an_exit_ends_the_program) {
    Folder folder;
    end_child([] { raise(SIGTERM); });
    EXPECT_EQ(folder.files(), 0);
    end_child([] { raise(SIGPIPE); });
    EXPECT_EQ(folder.files(), 0);
    end_child([] { std::exit(1); });
    EXPECT_EQ(folder.files(), 0);
}

TEST(backup, has_the_contents_and_the_permissions_of_the_file) {
    Folder folder;
    put("a; touch b", "text");
    chmod("a; touch b", 0600);
    EXPECT_TRUE(backup("a; touch b"));
    EXPECT_EQ(contents("a; touch b.bak"), "text");
    EXPECT_EQ(mode_of("a; touch b.bak"), 0600u);
    EXPECT_EQ(folder.files(), 2);
    EXPECT_FALSE(backup("none"));
}

}  // namespace
}  // namespace brindle
