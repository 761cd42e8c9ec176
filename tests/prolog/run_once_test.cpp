#include "prolog/run_once.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

namespace brindle {
namespace {

std::string output;
int dropped;

bool run(std::string_view input, const std::vector<std::string> &arguments,
         const std::string &directory = "") {
    RunOutput result = run_once(input, arguments, directory);
    output = std::move(result.text);
    dropped = result.dropped_chunks;
    return result.ended;
}

std::vector<std::string> shell(const std::string &script) {
    return {"sh", "-c", script};
}

TEST(run_once, gives_the_input_and_collects_both_outputs) {
    EXPECT_TRUE(run("f(x) --- [] ---\n", {"cat"}));
    EXPECT_EQ(output, "f(x) --- [] ---\n");
    EXPECT_TRUE(run("", shell("echo out; echo err >&2; exit 3")));
    EXPECT_EQ(output, "out\nerr\n");
    EXPECT_TRUE(run("", shell("pwd -P"), "/usr/bin"));
    EXPECT_EQ(output, std::filesystem::canonical("/usr/bin").string() + "\n");
}

TEST(run_once, input_and_output_of_any_length_at_once) {
    const std::string input(3000000, 'x');
    EXPECT_TRUE(run(input, shell("cat >/dev/null; echo done")));
    EXPECT_EQ(output, "done\n");
    EXPECT_TRUE(run(input, {"cat"}));
    EXPECT_EQ(output.size(), 3000000 % OUTPUT_MAX);
    EXPECT_TRUE(run(input, shell("exec <&-; echo unread")));
    EXPECT_EQ(output, "unread\n");
}

TEST(run_once, output_that_does_not_fit) {
    EXPECT_TRUE(run(std::string(8190, 'y'), {"cat"}));
    EXPECT_EQ(output, std::string(8190, 'y'));
    EXPECT_EQ(dropped, 0);
    EXPECT_TRUE(run(std::string(8191, 'a') + std::string(1809, 'b'), {"cat"}));
    EXPECT_EQ(output, std::string(1809, 'b'));
    EXPECT_EQ(dropped, 1);
}

TEST(run_once, programs_that_fail) {
    EXPECT_FALSE(run("", shell("echo lost; kill -9 $$")));
    EXPECT_EQ(output, "");
    EXPECT_TRUE(run("", {"no-such-program-here"}));
    EXPECT_EQ(output.substr(0, output.find('\n')), "no-such-program-here:file not found.");
    EXPECT_NE(output.find("execvp: "), std::string::npos);
    EXPECT_TRUE(run("", {"/etc/passwd"}));
    EXPECT_EQ(output.find("/etc/passwd: "), 0u);
    EXPECT_TRUE(run("text", {"cat"}, "/no/such/directory"));
    EXPECT_NE(output.find("/no/such/directory: "), std::string::npos);
    EXPECT_NE(output.find("text"), std::string::npos);
}

}  // namespace
}  // namespace brindle
