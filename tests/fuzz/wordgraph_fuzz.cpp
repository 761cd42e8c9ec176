// Any bytes are word graphs or an error; the graphs, written one after the other, are read again as they are.
#include <vector>

#include "check.hpp"
#include "corpus/readtrees.hpp"
#include "model/text.hpp"
#include "wordgraph/readwg.hpp"

namespace {

using namespace brindle;

std::vector<std::string> graphs() {
    std::vector<std::string> all;
    for (const TreeEntry &tree : forest) {
        FUZZ_CHECK(tree.wordgraph && tree.wordgraph->starts_with("\nBEGIN_LATTICE"));
        all.push_back(*tree.wordgraph);
    }
    return all;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    read_forest("( (S A/a) )\n( (S A/b) )\n", "");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    for (TreeEntry &tree : forest) tree.wordgraph.reset();
    if (!attach_wordgraphs(text).empty()) return 0;
    const auto first = graphs();
    FUZZ_CHECK(attach_wordgraphs(first[0] + first[1]).empty());
    FUZZ_CHECK(graphs() == first);
    return 0;
}
