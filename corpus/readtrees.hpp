#pragma once
// The reader of the corpus format: bracketed trees, one after another, with free text between them.
//
// Every format error is a FormatError with the whole message; readcorpus ends the program with it.
#include <string>
#include <string_view>
#include <vector>

#include "model/forest.hpp"
#include "stats/bulk.hpp"

namespace brindle {

struct FormatError {
    std::string message;
    int line;  // where the reader stood
};

extern int lines;  // the line on which the reader stands, from 1; set by the reader, read by its messages

// Counts the trees (top-level bracket groups) and checks that the brackets balance. Lines outside all
// brackets whose first graphic character is none of "*", "(" and ")" are comments. Throws FormatError.
int trees(std::string_view text);

// Reads trees from a text. The text must outlive the reader.
class TreeReader {
  public:
    // Trees are stored through `bulk` if it is given, which must outlive the reader.
    explicit TreeReader(std::string_view text, BulkStoring *bulk = nullptr)
        : p_(text.data()), end_(p_ + text.size()), bulk_(bulk) {
        lines = 1;
    }

    // Looks for the next tree and stops behind its "(". Sets `checked` to whether a "*" stood before it.
    // False: there is none.
    bool eat_until_open(bool &checked);

    // Reads one node with everything below it, stores it in the statistics under TREE_CHECKED, and records
    // the mother contexts. Throws FormatError.
    Node *read_tree();

  private:
    enum class Mode { category, tag, word };

    void skip_blanks();
    [[noreturn]] static void no_label(Mode mode);
    std::string_view readlabel(Mode mode, const char *too_long, std::size_t most);
    std::string_view category(bool bracketed);
    bool annotations(Node *node, bool bracketed, bool &closes_mother, bool &has_word);

    const char *p_;
    const char *end_;
    BulkStoring *bulk_;
    ReadTree own_room_;            // where a tree is read without `bulk`
    ReadTree *room_ = &own_room_;  // where the present tree is read
};

// Reads a whole corpus from a text into an empty forest and empty tables. Sets amount and lines. Throws
// FormatError. `name` is shown in the progress line; empty: no progress is shown.
void read_forest(std::string_view text, const std::string &name);

// Reads the corpus file: empties forest and tables, sets forest, amount, CORPUS_MOD_TIME and lines. Any error
// ends the program with its message and status 1. Shows a progress line for a large corpus when standard
// error is a terminal, unless told not to.
void readcorpus(const std::string &name, bool show_progress = true);

// Reads one node from the start of the text, as the syntax editor needs it, into the entry's root, under
// TREE_CHECKED. Throws FormatError: check the text first (editor/).
void readtree(TreeEntry &entry, std::string_view text);

}  // namespace brindle
