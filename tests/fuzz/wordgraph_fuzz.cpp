// Any bytes are word graphs or an error; the graphs, written one after the other, are read again as they are.
#include "base/text.hpp"
#include "check.hpp"
#include "corpus/lattices.hpp"
#include "corpus/reader.hpp"

namespace {

using namespace brindle;

// The graphs of two trees that the text holds; false: it holds fewer.
bool attached(std::string_view text, std::string (&graphs)[2]) {
    Corpus corpus;
    read_trees(corpus, "( (S A/a) )\n( (S A/b) )\n");
    if (!attach_wordgraphs(corpus, text).empty()) return false;
    for (int t = 0; t < 2; ++t) {
        graphs[t] = corpus.wordgraph(t);
        FUZZ_CHECK(graphs[t].starts_with("\nBEGIN_LATTICE"));
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    std::string first[2], second[2];
    if (!attached({reinterpret_cast<const char *>(data), size}, first)) return 0;
    FUZZ_CHECK(attached(first[0] + first[1], second));
    for (int t = 0; t < 2; ++t) FUZZ_CHECK(first[t] == second[t]);
    return 0;
}
