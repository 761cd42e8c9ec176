#include "corpus/saving.hpp"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "base/output_file.hpp"
#include "corpus/reader.hpp"
#include "edit/change.hpp"
#include "support/files.hpp"

namespace brindle {
namespace {

using test::contents;
using test::Folder;
using test::LongestFile;
using test::put;
namespace fs = std::filesystem;

// A corpus file in a folder of its own, read, with one unsaved change.
struct EditedCorpus : Corpus {
    Folder folder;
    const std::string file = folder.file("c.trees");

    explicit EditedCorpus(std::string_view text = "( (S A/a) )\n", std::string_view tag = "x") {
        put(file, text);
        read_corpus(*this, file);
        name = file;
        set_tag(*this, tree(0).root, tag);
    }
    bool has_edits() const { return unsaved_changes == 1 && tree(0).root->changed(); }
};

TEST(saving, forgets_the_edits_and_keeps_a_backup) {
    EditedCorpus corpus;
    EXPECT_TRUE(corpus.has_edits());
    EXPECT_EQ(save(corpus).message, corpus.file + " saved");
    EXPECT_EQ(corpus.unsaved_changes, 0);
    EXPECT_FALSE(corpus.tree(0).root->changed());
    EXPECT_EQ(contents(corpus.file), "\n\ntree #1\n(\n (S|x A/a))\n");
    EXPECT_EQ(contents(corpus.file + ".bak"), "( (S A/a) )\n");
    EXPECT_EQ(save(corpus).status, SaveStatus::saved);  // its own change of the file is no reason to refuse
    EXPECT_EQ(contents(corpus.file + ".bak"), contents(corpus.file));
}

TEST(saving, refuses_over_somebody_elses_change_however_small) {
    EditedCorpus corpus;
    const auto read_at = fs::last_write_time(corpus.file);
    fs::last_write_time(corpus.file, read_at + std::chrono::nanoseconds(1));
    const SaveResult refused = save(corpus);
    EXPECT_EQ(refused.status, SaveStatus::newer_on_disk);
    EXPECT_EQ(refused.message, "Refuse to save to " + corpus.file + ":\nFile on disk is newer.");
    EXPECT_EQ(contents(corpus.file), "( (S A/a) )\n");
    EXPECT_TRUE(corpus.has_edits());
    EXPECT_EQ(corpus.folder.files(), 1);
    fs::remove(corpus.file);
    EXPECT_EQ(save(corpus).status, SaveStatus::saved);  // written anew, without a backup
    EXPECT_EQ(corpus.folder.files(), 1);
    put(corpus.file, "older");
    fs::last_write_time(corpus.file, read_at - std::chrono::hours(1));
    EXPECT_EQ(save(corpus).status, SaveStatus::saved);
    EXPECT_EQ(contents(corpus.file + ".bak"), "older");
}

TEST(saving, a_full_disk_leaves_the_old_file_and_the_edits) {
    EditedCorpus corpus("( (S A/a) )\n", std::string(1000, 'x'));
    SaveResult result;
    {
        const LongestFile longest(100);
        result = save(corpus);
    }
    EXPECT_EQ(result.status, SaveStatus::cannot_write);
    EXPECT_EQ(result.message, "Cannot write to:\n" + corpus.file + "\nFile too large");
    EXPECT_EQ(contents(corpus.file), "( (S A/a) )\n");
    EXPECT_TRUE(corpus.has_edits());
    EXPECT_EQ(corpus.folder.files(), 2);  // the corpus and its backup, nothing half
    const timespec before = corpus.file_time;
    EXPECT_EQ(save_as(corpus, "/dev/full", CorpusFormat::atis).message,
              "cannot write to:\n/dev/full\nNo space left on device");
    EXPECT_EQ(save_as(corpus, "none/c", CorpusFormat::dop).message,
              "cannot write to:\nnone/c\nNo such file or directory");
    EXPECT_FALSE(fs::exists(".encoding"));
    EXPECT_TRUE(corpus.has_edits());
    EXPECT_EQ(corpus.name, corpus.file);
    EXPECT_EQ(corpus.file_time.tv_nsec, before.tv_nsec);
}

TEST(save_as, the_native_format_is_a_save_under_a_new_name) {
    EditedCorpus corpus;
    EXPECT_EQ(save_as(corpus, "other", CorpusFormat::atis).message, "other saved");
    EXPECT_EQ(corpus.name, "other");
    EXPECT_EQ(corpus.unsaved_changes, 0);
    EXPECT_EQ(contents(corpus.file), "( (S A/a) )\n");
    EXPECT_EQ(save(corpus).message, "other saved");
    EXPECT_EQ(contents("other"), contents("other.bak"));
}

TEST(save_as, the_other_formats_change_nothing) {
    EditedCorpus corpus;
    EXPECT_EQ(save_as(corpus, "d", CorpusFormat::dop).message, "d written in DOP-format 1");
    EXPECT_EQ(contents("d"), "tree(Szay,[tree(A,[tree(a_,[])])]).\n");
    EXPECT_EQ(contents(".encoding"), "ay\tx\n");
    EXPECT_FALSE(fs::exists("underlying_CFG"));
    EXPECT_EQ(save_as(corpus, "d.aug", CorpusFormat::dop2).message,
              "d.aug written in \"augmented\" DOP-format 2");
    EXPECT_EQ(contents("d.aug"), "tree(sss,[tree(Sxa,[tree(A,[tree(a_,[])])])]).\n");
    EXPECT_EQ(contents(".encoding"), "S_A_a\tx\n");
    EXPECT_EQ(contents("underlying_CFG"), "1\tS -> A\t1\n");
    EXPECT_EQ(save_as(corpus, "i", CorpusFormat::info,
                      [](const Node *) {
                          return Formula{Formula::Outcome::evaluated, "(y)"};
                      })
                  .message,
              "i written in INFO-format");
    EXPECT_EQ(contents("i"), "\n======-1-======\n\na \n\n(y)\n\n(\n (S|x A/a))\n");
    EXPECT_TRUE(corpus.has_edits());
    EXPECT_EQ(corpus.name, corpus.file);
}

TEST(save_as, all_files_of_a_dop_corpus_appear_or_none) {
    EditedCorpus corpus("( (S A/a) )\n", std::string(200, 'x'));
    put("d", "old");
    {
        const LongestFile longest(150);  // the terms fit, ".encoding" does not
        EXPECT_EQ(save_as(corpus, "d", CorpusFormat::dop2).message,
                  "cannot write to:\n.encoding\nFile too large");
    }
    EXPECT_EQ(contents("d"), "old");
    EXPECT_EQ(corpus.folder.files(), 2);
    fs::create_directory("underlying_CFG");  // a grammar that cannot be created is left out without a word
    EXPECT_EQ(save_as(corpus, "d", CorpusFormat::dop2).status, SaveStatus::saved);
    fs::create_directory("sub");
    fs::current_path("sub");
    fs::create_directory(".encoding");
    EXPECT_EXIT(save_as(corpus, "d", CorpusFormat::dop), testing::ExitedWithCode(1),
                "^.encoding: Is a directory\n$");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 1);
}

}  // namespace
}  // namespace brindle
