#pragma once
// A small corpus for one test: read from the text in the test, proved sound when the test ends.
#include <string>
#include <string_view>

#include "model/forest.hpp"
#include "model/frontend.hpp"
#include "stats/changes.hpp"
#include "stats/links.hpp"

namespace brindle::test {

// Puts the whole program state back to what it is at start-up: forest, tables, requests.
void reset_all();

// Reads the text as a corpus file into the forest: one tree a line, "( (S (NP NN/cats)) )", "*" before it if
// it is checked. When it goes, verify_tables() must hold (a failure of the test otherwise), and everything is
// reset. One at a time.
class Corpus {
  public:
    explicit Corpus(std::string_view text);
    ~Corpus();
    Corpus(const Corpus &) = delete;
    Corpus &operator=(const Corpus &) = delete;

    // The node of a path ("." the root, "2.1" ...) in a tree (0-based); a missing one ends the test program.
    Node *at(std::string_view path, int tree = 0) const;
    TreeEntry &tree(int t) const { return forest[static_cast<std::size_t>(t)]; }

    // Changes by path, under the flag of the tree.
    void tag(std::string_view path, std::string_view tag, int tree = 0) const;
    void category(std::string_view path, std::string_view category, int tree = 0) const;

    // A tree as text on one line: "(S (NP|x NN/cats))".
    std::string text(int tree = 0) const;
};

// The text of a file of ../shared/corpora beside the source; "" where that is absent: test fewer cases then.
std::string shared_corpus(const std::string &name);
// The text of a file of examples/.
std::string example(const std::string &name);
std::string example_folder();
// The beginning of such a corpus, up to the end of its n-th tree.
std::string_view first_trees(std::string_view text, int n);

// "name:count(checked)" of each entry of the kind, chains in order of their buckets; "-" is the name of no
// tag.
std::string entries(LabelKind kind);
// The co-occurrence list of an entry, in its order: "partner:count(checked)" or
// "category|tag:count(checked)".
std::string links(const LabelEntry *entry);
std::string links(const LexEntry *entry);
// A list of mother contexts, in its order: "category|tag 1/2:count(checked)".
std::string contexts(const Parents &parents);

// Short ways to entries that a test expects to exist.
inline LabelEntry *nonterm(std::string_view name) {
    return search(name, LabelKind::NONTERM, MustExist::yes);
}
inline LabelEntry *term(std::string_view name) {
    return search(name, LabelKind::TERM, MustExist::yes);
}
inline LabelEntry *sem(std::string_view name) {
    return search(name, LabelKind::SEM, MustExist::yes);
}
inline LexEntry *word(std::string_view name) {
    return searchlex(name, MustExist::yes);
}

}  // namespace brindle::test
