#pragma once
// A small corpus for one test: read from the text in the test, proved sound when the test ends.
#include <optional>
#include <string>
#include <string_view>

#include "model/corpus.hpp"
#include "stats/statistics.hpp"

namespace brindle::test {

// A corpus of the trees in the text: "( (S (NP NN/cats)) )", "*" before those that are checked. When it goes,
// `verify` must find nothing (a failure of the test otherwise). Any number at a time.
class TestCorpus : public Corpus {
  public:
    explicit TestCorpus(std::string_view text);
    ~TestCorpus();

    // The node of a path ("." the root, "2.1" ...) in a tree (0-based); a missing one ends the test program.
    Node *at(std::string_view path, int t = 0) const;

    // Changes by path; the refusal, if there is one.
    std::optional<std::string> tag(std::string_view path, std::string_view tag, int t = 0);
    std::optional<std::string> category(std::string_view path, std::string_view category, int t = 0);

    // A tree as text on one line: "(S (NP|x NN/cats))".
    std::string text(int t = 0) const;

    // Entries that the test expects to exist: a missing one ends the test program.
    LabelEntry *nonterm(std::string_view label) const;
    LabelEntry *term(std::string_view label) const;
    LabelEntry *sem(std::string_view label) const;
    LexEntry *word(std::string_view label) const;
};

// The statistics in their order, a line an entry, chain after chain: "kind name:count(checked): " (kind 0: a
// word; name "-": no tag), then its list, "tag:count(checked) [contexts]", "category/kind:count(checked)" or
// "category|tag:count(checked) [contexts]", a context being "mother|tag 1/2:count(checked)".
std::string tables(const Corpus &corpus);

// The text of a file of ../shared/corpora beside the source; "" where that is absent: test fewer cases then.
std::string shared_corpus(const std::string &name);
// The text of a file of examples/.
std::string example(const std::string &name);
std::string example_folder();
// The beginning of such a corpus, up to the end of its n-th tree.
std::string_view first_trees(std::string_view text, int n);

}  // namespace brindle::test
