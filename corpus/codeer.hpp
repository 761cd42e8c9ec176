#pragma once
// The label encoder of the DOP formats: it hands out short codes for tags and lists in the file ".encoding"
// what each stands for; for the second format it also writes the productions as the file "underlying_CFG".
#include <memory>
#include <string>

#include "model/label.hpp"

namespace brindle {

class Corpus;
class Node;

// A file that could not be written, and what the system says about it.
struct WriteFault {
    std::string name;
    std::string reason;
};

// The number as letters: a, b ... z, aa, ab ... az, ba ... zz, aaa ...
std::string letters(int index);

// One encoding run; codes mean something only within it. Both side files lie in the current directory and
// appear whole, with `commit`, or not at all.
class EncodingRun {
  public:
    // Creates ".encoding". If that fails the program ends with the system's text. The statistics of the
    // corpus must stay as they are meanwhile.
    explicit EncodingRun(Corpus &corpus);
    ~EncodingRun();

    // The code of a tag: ay, by ... zy, aay ... in the order of first use.
    std::string codeer_old(const Label *tag);

    // The code of a tagged node with daughters among the tags of its production (its category with those of
    // its daughters): a is the first one met. Counts the production for that tree (from 1).
    std::string codeer(const Node *node, int tree);

    // The code of a tagged node with a word among the tags of its word and category: a is the one seen most
    // often in checked trees. Ends the program with "Fault in hashtable!?" if the statistics lack the node.
    std::string codeerlex(const Node *node);

    // Writes "underlying_CFG": the productions with their counts and trees. One that cannot be created is
    // left out, as if it had not been asked for.
    void write_grammar();

    // Does all that can fail: both files are on disk, beside their targets. False: see fault().
    bool complete();
    // Completes the files and puts them in place. False: see fault().
    bool commit();
    WriteFault fault() const;

  private:
    struct Tables;
    std::unique_ptr<Tables> tables_;
};

}  // namespace brindle
