#pragma once
// The writers of the corpus format. The reader (reader.hpp) reads what they write.
#include <string>

#include "base/text_sink.hpp"
#include "model/corpus.hpp"

namespace brindle {

// "\ntree #<number>\n".
void tree_number(int number, TextBuffer &out);

// The node and its right sisters as bracketings, from that level of indentation on.
void write_tree(const Node *node, TextBuffer &out, int level);
// The same, appended to a text.
void write_tree(const Node *node, std::string &out, int level);

// One tree of a saved corpus: its mark if it is checked, its bracketing, its word graph.
void write_tree_entry(const Corpus &corpus, int t, TextBuffer &out);

// The words of the tree, each followed by a blank, and a newline.
void write_the_words(const Node *root, TextBuffer &out);

// The whole corpus in the native format. False as soon as the sink fails.
bool save_corpus(const Corpus &corpus, TextSink &sink);

// A subtree as the syntax editor shows it: the node and everything below it, each on a line of its own (a
// newline comes first, none last), indented by four blanks a level: nodes with daughters in brackets, all
// others bare.
std::string write_tree_to_editor(const Node *node);

// The same on one line, which ends in a newline: what the road of changes takes as a subtree's text.
std::string bracketing_of(const Node *node);

}  // namespace brindle
