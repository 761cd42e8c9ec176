#include "wordgraph/readwg.hpp"

#include <gtest/gtest.h>

#include "corpus/writetrees.hpp"
#include "support/corpus.hpp"

namespace brindle {
namespace {

using test::Corpus;

constexpr std::string_view three_trees = "( (S A/a) )\n( (S A/b) )\n( (S A/c) )\n";

std::string lattice(int n, std::string_view arcs = "1 2 word\n") {
    return "BEGIN_LATTICE " + std::to_string(n) + "\n" + std::string(arcs) + "END_LATTICE\n";
}

TEST(wordgraphs, each_tree_gets_its_lattice_and_what_stands_between_is_lost) {
    Corpus corpus(three_trees);
    EXPECT_EQ(attach_wordgraphs("noise\n" + lattice(1) + "more END_LATTICE noise\n\n" + lattice(2) +
                                lattice(3) + lattice(4)),
              "");
    EXPECT_EQ(*corpus.tree(0).wordgraph, "\nBEGIN_LATTICE 1\n1 2 word\nEND_LATTICE\n");
    EXPECT_EQ(*corpus.tree(2).wordgraph, "\nBEGIN_LATTICE 3\n1 2 word\nEND_LATTICE\n");
}

TEST(wordgraphs, a_short_file_tells_what_was_read) {
    Corpus corpus(three_trees);
    EXPECT_EQ(attach_wordgraphs(lattice(1) + lattice(2)), "Wordgraphfile is too short! Read 2 of required 4");
    EXPECT_EQ(attach_wordgraphs(""), "Wordgraphfile is too short! Read 0 of required 4");
    EXPECT_EQ(attach_wordgraphs(lattice(1) + "BEGIN_LATTICE\n1 2 x\n"),
              "Unexpected end of file in word graph 2");
}

TEST(wordgraphs, a_long_line_is_read_in_pieces) {
    Corpus corpus("( (S A/a) )\n");
    const std::string piece(255, 'x');
    ASSERT_EQ(
        attach_wordgraphs(piece + "BEGIN_LATTICE" + piece + "END_LATTICE\n" + piece + "END_LATTICE tail\n"),
        "");
    EXPECT_EQ(*corpus.tree(0).wordgraph,
              "\nBEGIN_LATTICE" + piece + "END_LATTICE\n" + piece + "END_LATTICE tail\n");
}

TEST(wordgraphs, lattices_of_any_length_travel_with_the_saved_tree) {
    Corpus corpus("( (S A/a) )\n");
    std::string arcs;
    for (int i = 0; i < 40000; ++i) arcs += "1 2 a_word_of_some_length\n";
    ASSERT_EQ(attach_wordgraphs(lattice(1, arcs)), "");
    TextBuffer text;
    write_tree_entry(corpus.tree(0), text);
    EXPECT_EQ(text.text(), "(\n (S A/a))\n\n" + lattice(1, arcs) + "\n");
}

}  // namespace
}  // namespace brindle
