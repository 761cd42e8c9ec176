// Any lines are an edit script: each is carried out or refused with a reason, a refused one changes nothing,
// and the statistics are those of the trees after each.
#include "app/batch/actions.hpp"
#include "base/text.hpp"
#include "check.hpp"
#include "corpus/reader.hpp"
#include "stats/verify.hpp"
#include "tests/support/files.hpp"

using namespace brindle;
using test::saved;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char *>(data), size);
    Corpus corpus;
    read_trees(corpus, "*\n( (S|s(d1,d2) (NP|n A|x/a) (VP|v B/b)) )\n( (S (NP A/a) C|x/b) )\n");
    std::string before = saved(corpus);
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string message = batch::carry_out(corpus, rest.substr(0, end));
        rest = end == rest.npos ? std::string_view() : rest.substr(end + 1);
        FUZZ_CHECK(verify(corpus).empty());
        std::string after = saved(corpus);
        FUZZ_CHECK(message.empty() || after == before);
        before = std::move(after);
    }
    // What the script has made is a corpus.
    Corpus again;
    read_trees(again, before);
    FUZZ_CHECK(saved(again) == before);
    return 0;
}
