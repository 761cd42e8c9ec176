#include "corpus/saving.hpp"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "corpus/readtrees.hpp"
#include "corpus/writetrees.hpp"
#include "model/output_file.hpp"
#include "support/corpus.hpp"

namespace brindle {
namespace {

using test::Corpus;
namespace fs = std::filesystem;

struct StringSink : TextSink {
    bool write(std::string_view piece) override { return text += piece, true; }
    std::string text;
};

std::string saved_text() {
    StringSink sink;
    save_corpus(sink);
    return sink.text;
}

std::string contents(const fs::path &file) {
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// An empty folder for one test.
struct Folder {
    fs::path path = fs::temp_directory_path() / ("brindle-test-" + std::to_string(getpid()));
    Folder() { fs::create_directories(path); }
    ~Folder() { fs::remove_all(path); }
    std::string file(const char *name) const { return (path / name).string(); }
    long files() const { return std::distance(fs::directory_iterator(path), fs::directory_iterator()); }
};

TEST(writer, a_tree_as_it_is_saved) {
    Corpus corpus("( (S (NP NN/cats) (VP VBZ/sleep)) )\n* ( (X (Y) Z|t/w) )\n( (S A/a ./. B/b) )");
    EXPECT_EQ(saved_text(),
              "\n\ntree #1\n(\n (S\n    (NP NN/cats)\n    (VP VBZ/sleep)))\n"
              "\ntree #2\n*\n( (X Y Z|t/w))\n"
              "\ntree #3\n(\n (S A/a\n    ./. B/b))\n");
}

TEST(writer, no_trees) {
    Corpus corpus("");
    EXPECT_EQ(saved_text(), "\n");
}

TEST(writer, a_saved_corpus_reads_back_the_same) {
    for (const char *name : {"gum.trees", "gum-utf8.trees", "geo-label.trees", "geo-label-blank.trees"}) {
        const std::string text = test::shared_corpus(name);
        if (text.empty()) continue;
        Corpus corpus(text);
        EXPECT_TRUE(saved_text() == text) << name;
    }
    Corpus corpus("* ( (S|f(d1) (NP (N a/b)) (VP (V|x) W ./.)) )\n( (A (B (C) ?/?)) )");
    const std::string once = saved_text();
    const std::string tags = test::entries(LabelKind::SEM);
    read_forest(once, "");
    EXPECT_EQ(saved_text(), once);
    EXPECT_EQ(test::entries(LabelKind::SEM), tags);
}

TEST(saving, forgets_the_edits_and_keeps_a_backup) {
    Folder folder;
    const std::string name = folder.file("c.trees");
    std::ofstream(name) << "( (S A/a) )\n";
    readcorpus(name);
    CORPUS = name;
    new_label(forest[0].root, "x", nullptr);
    EXPECT_EQ(MODIFIED, 1);
    EXPECT_EQ(save().status, SaveStatus::saved);
    EXPECT_EQ(MODIFIED, 0);
    EXPECT_EQ(contents(name), "\n\ntree #1\n(\n (S|x A/a))\n");
    EXPECT_EQ(contents(name + ".bak"), "( (S A/a) )\n");
    EXPECT_EQ(save().status, SaveStatus::saved);  // its own change of the file is no reason to refuse
    EXPECT_EQ(contents(name + ".bak"), contents(name));
    test::reset_all();
}

TEST(saving, refuses_over_somebody_elses_change) {
    Folder folder;
    const std::string name = folder.file("c.trees");
    std::ofstream(name) << "( (S A/a) )\n";
    readcorpus(name);
    CORPUS = name;
    new_label(forest[0].root, "x", nullptr);
    fs::last_write_time(name, fs::last_write_time(name) + std::chrono::seconds(2));
    EXPECT_EQ(save().status, SaveStatus::newer_on_disk);
    EXPECT_EQ(contents(name), "( (S A/a) )\n");
    EXPECT_EQ(MODIFIED, 1);
    fs::remove(name);
    EXPECT_EQ(save().status, SaveStatus::saved);  // written anew, without a backup
    EXPECT_EQ(folder.files(), 1);
    test::reset_all();
}

TEST(saving, a_full_disk_leaves_the_old_file_and_the_edits) {
    Folder folder;
    const std::string name = folder.file("c.trees");
    std::ofstream(name) << "( (S A/a) )\n";
    readcorpus(name);
    CORPUS = name;
    new_label(forest[0].root, std::string(1000, 'x'), nullptr);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 100;
    setrlimit(RLIMIT_FSIZE, &small);
    const SaveResult result = save();
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(result.status, SaveStatus::cannot_write);
    EXPECT_EQ(result.reason, "File too large");
    EXPECT_EQ(contents(name), "( (S A/a) )\n");
    EXPECT_EQ(MODIFIED, 1);
    EXPECT_TRUE(forest[0].root->changed);
    EXPECT_EQ(folder.files(), 2);  // the corpus and its backup, nothing half
    CORPUS = "/dev/full";
    EXPECT_EQ(write_corpus("/dev/full").reason, "No space left on device");
    EXPECT_EQ(write_corpus(folder.file("none/c")).reason, "No such file or directory");
    test::reset_all();
}

TEST(output_file, follows_links_and_keeps_permissions) {
    Folder folder;
    std::ofstream(folder.file("real")) << "old";
    chmod(folder.file("real").c_str(), 0640);
    fs::create_symlink("real", folder.file("link"));
    {
        OutputFile dropped(folder.file("link"));
        dropped.write("half");
    }
    EXPECT_EQ(contents(folder.file("real")), "old");
    OutputFile file(folder.file("link"));
    EXPECT_TRUE(file.write("new") && file.commit());
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    EXPECT_EQ(contents(folder.file("real")), "new");
    EXPECT_EQ(fs::status(folder.file("real")).permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(folder.files(), 2);
}

}  // namespace
}  // namespace brindle
