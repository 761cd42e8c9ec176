// Starting the workbench: what its command line says, with and without a display.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>

#include "windows/workbench_driver.hpp"

namespace brindle::windows {
namespace {

struct Outcome {
    int status;
    std::string output;  // of both streams
};

// Runs the workbench from a shell, without a display.
Outcome run(const std::string &arguments) {
    const std::string command = "env -u DISPLAY " BRINDLE_PROGRAM " " + arguments + " 2>&1";
    std::FILE *pipe = popen(command.c_str(), "r");
    Outcome outcome{};
    char piece[512];
    while (const std::size_t size = std::fread(piece, 1, sizeof piece, pipe))
        outcome.output.append(piece, size);
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
}

const std::string usage =
    "\nerror: Usage:\n\t" BRINDLE_PROGRAM " [-w <wordgraphfile>][X-options] <corpusname>\n";

TEST(workbench_start, a_wrong_command_line_stops_with_the_usage) {
    for (const char *arguments : {"", "a b", "-x graphs corpus", "-wx graphs corpus", "a b c d",
                                  "-display :7", "-geometry 300x300 -title Towns a b"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.output, usage) << arguments;
        EXPECT_EQ(outcome.status, 1) << arguments;
    }
}

TEST(workbench_start, help_and_version_need_no_display) {
    const Outcome help = run("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("-w <wordgraphfile>"), std::string::npos);
    EXPECT_EQ(run("--version").output, "brindle " BRINDLE_VERSION "\n");
}

TEST(workbench_start, faults_of_the_corpus_are_told_before_a_display_is_needed) {
    const Outcome missing = run("-display :7 /no/such/corpus");
    EXPECT_EQ(missing.output, "/no/such/corpus: No such file or directory\n");
    EXPECT_EQ(missing.status, 1);
    const std::string name = testing::TempDir() + "/broken.trees";
    std::ofstream(name) << "((S\n(NP NN|/cat)))\n";
    const Outcome broken = run(name);
    std::remove(name.c_str());
    EXPECT_NE(broken.output.find("\nerror: Semantic tag expected in line 2\n"), std::string::npos)
        << broken.output;
    EXPECT_EQ(broken.status, 1);
}

TEST(workbench_start, without_a_server_one_line_says_so) {
    const std::string name = testing::TempDir() + "/good.trees";
    std::ofstream(name) << small_corpus;
    const Outcome outcome = run("-display :799 " + name);
    std::remove(name.c_str());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find(":799"), std::string::npos) << outcome.output;
}

TEST(workbench_start, a_long_corpus_name_is_cut_in_the_button) {
    Workbench w(small_corpus, "a_corpus_with_a_rather_long_name.tr");
    EXPECT_NE(w.gui().map().item("button", "Edit a_corpus_with_a_rather_long_nam..."), nullptr);
    w.gui().press("Edit a_corpus_with_a_rather_long_nam...");
    w.gui().wait_frame("a_corpus_with_a_rather_long_name.tr");
}

}  // namespace
}  // namespace brindle::windows
