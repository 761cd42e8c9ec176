#include "corpus/lattices.hpp"

#include <gtest/gtest.h>

#include "corpus/writetrees.hpp"
#include "support/files.hpp"
#include "support/test_corpus.hpp"

namespace brindle {
namespace {

using test::TestCorpus;

constexpr std::string_view three_trees = "( (S A/a) )\n( (S A/b) )\n( (S A/c) )\n";

std::string lattice(int n, std::string_view arcs = "1 2 word\n") {
    return "BEGIN_LATTICE " + std::to_string(n) + "\n" + std::string(arcs) + "END_LATTICE\n";
}

TEST(wordgraphs, each_tree_gets_its_lattice_and_what_stands_between_is_lost) {
    TestCorpus corpus(three_trees);
    EXPECT_EQ(attach_wordgraphs(corpus, "noise\n" + lattice(1) + "more END_LATTICE noise\n\n" + lattice(2) +
                                            lattice(3) + lattice(4)),
              "");
    EXPECT_EQ(corpus.wordgraph(0), "\nBEGIN_LATTICE 1\n1 2 word\nEND_LATTICE\n");
    EXPECT_EQ(corpus.wordgraph(2), "\nBEGIN_LATTICE 3\n1 2 word\nEND_LATTICE\n");
}

TEST(wordgraphs, a_short_file_tells_what_was_read) {
    TestCorpus corpus(three_trees);
    EXPECT_EQ(attach_wordgraphs(corpus, lattice(1) + lattice(2)),
              "Wordgraphfile is too short! Read 2 of required 4");
    EXPECT_EQ(attach_wordgraphs(corpus, ""), "Wordgraphfile is too short! Read 0 of required 4");
    EXPECT_EQ(attach_wordgraphs(corpus, lattice(1) + "BEGIN_LATTICE\n1 2 x\n"),
              "Unexpected end of file in word graph 2");
}

TEST(wordgraphs, a_long_line_is_read_in_pieces) {
    TestCorpus corpus("( (S A/a) )\n");
    const std::string piece(255, 'x');
    ASSERT_EQ(attach_wordgraphs(
                  corpus, piece + "BEGIN_LATTICE" + piece + "END_LATTICE\n" + piece + "END_LATTICE tail\n"),
              "");
    EXPECT_EQ(corpus.wordgraph(0),
              "\nBEGIN_LATTICE" + piece + "END_LATTICE\n" + piece + "END_LATTICE tail\n");
}

TEST(wordgraphs, lattices_of_any_length_travel_with_the_saved_tree) {
    TestCorpus corpus("( (S A/a) )\n");
    std::string arcs;
    for (int i = 0; i < 40000; ++i) arcs += "1 2 a_word_of_some_length\n";
    ASSERT_EQ(attach_wordgraphs(corpus, lattice(1, arcs)), "");
    TextBuffer text;
    write_tree_entry(corpus, 0, text);
    EXPECT_EQ(text.text(), "(\n (S A/a))\n\n" + lattice(1, arcs) + "\n");
}

TEST(wordgraphs, every_tree_of_the_example_has_one_which_the_reader_takes_for_a_comment) {
    TestCorpus corpus(test::example("travel.trees"));
    EXPECT_EQ(attach_wordgraphs(corpus, test::example("travel.lattices")), "");
    const std::string text = test::saved(corpus);
    EXPECT_EQ(TestCorpus(text).amount(), 167);
    EXPECT_NE(text.find("BEGIN_LATTICE 167\n"), text.npos);
    EXPECT_EQ(text.find("BEGIN_LATTICE 168\n"), text.npos);
}

}  // namespace
}  // namespace brindle
