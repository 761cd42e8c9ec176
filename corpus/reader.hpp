#pragma once
// The reader of the corpus format: bracketed trees, one after another, with free text between them.
#include <string>
#include <string_view>

#include "corpus/node_builder.hpp"
#include "stats/bulk.hpp"

namespace brindle {

// What is wrong with a corpus text: the whole message, and where.
struct FormatError {
    std::string message;
    TextPlace place;
};

// Counts the trees (top-level bracket groups) and checks that the brackets balance. Lines outside all
// brackets whose first graphic character is none of "*", "(" and ")" are comments. Throws FormatError.
int count_trees(std::string_view text);

// Reads a whole corpus, as far as its caller wants, into one that is empty.
//
//     CorpusReader reader(corpus, text);
//     while (reader.read_some(1 << 20)) show(reader.bytes_read());
//     reader.finish();
//
// The trees are there as they are read, their statistics from `finish` on. Whoever has seen enough may finish
// early and has a corpus of the trees so far, or throw reader and corpus away.
class CorpusReader {
  public:
    // The text must outlive the reader.
    CorpusReader(Corpus &corpus, std::string_view text);

    // Reads trees until so many bytes more have been read, or all. False: all trees are read. Throws
    // FormatError; the corpus must then be thrown away.
    bool read_some(std::size_t bytes);
    std::size_t bytes_read() const { return static_cast<std::size_t>(p_ - text_.data()); }

    // Completes the statistics. Nothing more is read.
    void finish() { counting_.finish(); }

  private:
    bool open_tree(bool &checked);
    void pass_line();
    void read_tree(bool checked);
    void count(const FlatTree &tree, bool checked);
    void count_trees_exactly();
    [[noreturn]] void fail(const SyntaxFault &fault);

    Corpus &corpus_;
    std::string_view text_;
    const char *p_;
    const char *end_;
    NodeBuilder builder_;
    BulkCounting counting_;
    int amount_ = -1;            // the number of trees, once it had to be counted
    bool at_line_start_ = true;  // only blanks stand before p_ on its line
    bool after_root_ = false;    // the bracket around the tree read last has not been closed yet
};

// Reads a whole corpus from a text into an empty one. Throws FormatError.
void read_trees(Corpus &corpus, std::string_view text);

// Reads the corpus file and sets the corpus' file_time. Any error ends the program with its message and
// status
// 1. Shows a progress line for a large corpus when standard error is a terminal, unless told not to.
void read_corpus(Corpus &corpus, const std::string &name, bool show_progress = true);

}  // namespace brindle
