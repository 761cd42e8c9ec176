#include "corpus/codeer.hpp"

#include <gtest/gtest.h>

#include "corpus/doptrees.hpp"
#include "support/files.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::contents;
using test::Folder;
using test::TestCorpus;

TEST(codes, letters_grow_past_the_last_one) {
    EXPECT_EQ(letters(0), "a");
    EXPECT_EQ(letters(25), "z");
    EXPECT_EQ(letters(26), "aa");
    EXPECT_EQ(letters(52), "ba");
    EXPECT_EQ(letters(701), "zz");
    EXPECT_EQ(letters(702), "aaa");
}

TEST(codes, a_tag_has_one_code_in_a_run) {
    Folder folder;
    Corpus corpus;
    EncodingRun run(corpus);
    const auto code = [&](const std::string &tag) { return run.codeer_old(corpus.labels.intern(tag)); };
    EXPECT_EQ(code("p"), "ay");
    EXPECT_EQ(code("q"), "by");
    EXPECT_EQ(code("p"), "ay");
    for (int i = 2; i < 26; ++i) code("t" + std::to_string(i));
    EXPECT_EQ(code("t25"), "zy");
    EXPECT_EQ(code("r"), "aay");
    EXPECT_TRUE(run.commit());
    EXPECT_TRUE(contents(".encoding").starts_with("ay\tp\nby\tq\ncy\tt2\n"));
    EXPECT_TRUE(contents(".encoding").ends_with("\nzy\tt25\naay\tr\n"));
}

TEST(codes, tags_are_numbered_by_production_and_trees_listed) {
    Folder folder;
    TestCorpus corpus("( (S|p NP/a VP/b) )\n( (S|q (NP|p N/n) VP/b) )\n( (NP_SBJ|p (X)) )\n");
    EncodingRun run(corpus);
    EXPECT_EQ(run.codeer(corpus.at(".", 0), 1), "a");
    EXPECT_EQ(run.codeer(corpus.at(".", 1), 4), "b");
    EXPECT_EQ(run.codeer(corpus.at("1", 1), 4), "a");
    for (int tree = 1; tree <= 12; ++tree) EXPECT_EQ(run.codeer(corpus.at(".", 2), tree), "a");
    run.write_grammar();
    EXPECT_TRUE(run.commit());
    EXPECT_EQ(contents(".encoding"), "S_NP_VP_a\tp\nS_NP_VP_b\tq\nNP_N_a\tp\nNP_SBJ_X_a\tp\n");
    // In the order of the tables' buckets.
    const std::string lines[] = {"2\tS -> NP VP\t1, 4\n", "1\tNP -> N\t4\n",
                                 "12\tNP -> SBJ X\t1, 2, 3, 4, 5, 6, 7, 8, 9, 12\n"};
    std::map<std::uint32_t, std::string> by_bucket = {
        {hash("S_NP_VP"), lines[0]}, {hash("NP_N"), lines[1]}, {hash("NP_SBJ_X"), lines[2]}};
    std::string all;
    for (const auto &[bucket, line] : by_bucket) all += line;
    EXPECT_EQ(contents("underlying_CFG"), all);
}

TEST(codes, a_word_s_tags_are_numbered_as_its_list_has_them) {
    Folder folder;
    TestCorpus corpus(
        "* ( (S VBZ/sleep VBZ/sleep VBZ|q/sleep VBZ|q/sleep VBZ|r/sleep NN|s/sleep) )\n"
        "( (S VBZ|q/sleep VBZ|t/sleep) )\n");
    EncodingRun run(corpus);
    EXPECT_EQ(run.codeerlex(corpus.at("5")), "b");  // r, behind q; the node without a tag is not counted
    EXPECT_EQ(run.codeerlex(corpus.at("3")), "a");
    EXPECT_EQ(run.codeerlex(corpus.at("6")), "a");
    EXPECT_EQ(run.codeerlex(corpus.at("2", 1)), "c");
    EXPECT_EQ(run.codeerlex(corpus.at("1", 1)), "a");
    EXPECT_TRUE(run.commit());
    EXPECT_EQ(contents(".encoding"), "VBZ_sleep_b\tr\nVBZ_sleep_a\tq\nNN_sleep_a\ts\nVBZ_sleep_c\tt\n");
}

TEST(codes, two_words_that_come_to_one_key_are_listed_once) {
    Folder folder;
    TestCorpus corpus("( (S A_b|x/c A|y/b_c) )\n");
    EncodingRun run(corpus);
    EXPECT_EQ(run.codeerlex(corpus.at("1")), "a");
    EXPECT_EQ(run.codeerlex(corpus.at("2")), "a");
    EXPECT_TRUE(run.commit());
    EXPECT_EQ(contents(".encoding"), "A_b_c_a\tx\n");
}

TEST(codes, more_tags_of_a_word_than_letters) {
    Folder folder;
    std::string text = "( (S";
    for (int i = 0; i < 30; ++i) text += " A|t" + std::to_string(i) + "/w";
    TestCorpus corpus(text + ") )");
    EncodingRun run(corpus);
    EXPECT_EQ(run.codeerlex(corpus.at("26")), "z");
    EXPECT_EQ(run.codeerlex(corpus.at("27")), "aa");
    EXPECT_TRUE(run.commit());
    EXPECT_EQ(contents(".encoding"), "A_w_z\tt25\nA_w_aa\tt26\n");
}

// The term of each tree.
std::string terms(Corpus &corpus, DopMode mode, bool augmented = false) {
    EncodingRun run(corpus);
    TextBuffer out;
    for (int t = 0; t < corpus.amount(); ++t)
        write_dop_entry(corpus.tree(t).root, out, mode, t + 1, run, augmented);
    run.write_grammar();
    EXPECT_TRUE(run.commit());
    return std::string(out.text());
}

TEST(dop, tags_become_codes) {
    Folder folder;
    TestCorpus corpus("( (S (NP NN/cats) (VP|p VBZ|q/sleep)) )\n");
    EXPECT_EQ(
        terms(corpus, DopMode::by_tag),
        "tree(S,[tree(NP,[tree(NN,[tree(cats_,[])])]),tree(VPzay,[tree(VBZxa,[tree(sleep_,[])])])]).\n");
    EXPECT_EQ(contents(".encoding"), "ay\tp\nVBZ_sleep_a\tq\n");
    EXPECT_EQ(terms(corpus, DopMode::by_rule, true),
              "tree(sss,[tree(S,[tree(NP,[tree(NN,[tree(cats_,[])])]),tree(VPxa,[tree(VBZxa,[tree(sleep_,[])]"
              ")])])]).\n");
    EXPECT_EQ(contents(".encoding"), "VP_VBZ_a\tp\nVBZ_sleep_a\tq\n");
    EXPECT_EQ(contents("underlying_CFG"), "1\tVP -> VBZ\t1\n");
}

TEST(dop, punctuation_cuts_its_sisters_off) {
    Folder folder;
    TestCorpus corpus("( (S (NP ./. N/n !/! N/o) X/x ?|t/? (Y|u Y/y)) )\n");
    EXPECT_EQ(terms(corpus, DopMode::by_tag),
              "tree(S,[tree(NP,[tree(.,[tree(._,[])]),tree(N,[tree(n_,[])])]),tree(X,[tree(x_,[])])]).\n");
    EXPECT_EQ(contents(".encoding"), "");
    TestCorpus mother("( (S|p A/a ./.) )\n");
    EXPECT_EQ(terms(mother, DopMode::by_rule), "tree(Sxa,[tree(A,[tree(a_,[])])]).\n");
    EXPECT_EQ(contents("underlying_CFG"), "1\tS -> A .\t1\n");  // the production has all daughters
}

TEST(dop, numbers_and_empty_nodes) {
    Folder folder;
    TestCorpus corpus("( (S C/1990 C/3rd C/A4 C/a4b (X) (Y|t)) )\n");
    const std::string number = "tree(C,[tree(number_,[])])", empty = "tree(xxx,[tree(empty_,[])])";
    EXPECT_EQ(terms(corpus, DopMode::by_tag), "tree(S,[" + number + "," + number + "," + number +
                                                  ",tree(C,[tree(a4b_,[])])," + empty + "," + empty +
                                                  "]).\n");
}

TEST(dop, deep_and_wide_trees) {
    Folder folder;
    const int n = 50000;
    std::string text = "( ";
    for (int i = 0; i < n; ++i) text += "(A ";
    for (int i = 0; i < n; ++i) text += "B/b ";
    TestCorpus corpus(text + std::string(n, ')') + ")");
    const std::size_t leaf = std::string_view("tree(B,[tree(b_,[])])").size();
    EXPECT_EQ(terms(corpus, DopMode::by_rule).size(),
              n * std::string_view("tree(A,[])").size() + n * (leaf + 1) + 1);
}

}  // namespace
}  // namespace brindle
