// Any lines are an edit script: each is carried out or refused with a reason, a refused one changes nothing,
// and the statistics are those of the trees after each.
#include "app/batch/edit_script.hpp"
#include "check.hpp"
#include "corpus/readtrees.hpp"
#include "model/text.hpp"
#include "saved.hpp"
#include "stats/tables.hpp"
#include "stats/verify.hpp"

using namespace brindle;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char *>(data), size);
    tables_init();
    reset_forest();
    read_forest("*\n( (S|s(d1,d2) (NP|n A|x/a) (VP|v B/b)) )\n( (S (NP A/a) C|x/b) )\n", "");
    std::string before = saved();
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string message = batch::carry_out(rest.substr(0, end));
        rest = end == rest.npos ? std::string_view() : rest.substr(end + 1);
        FUZZ_CHECK(verify_tables().empty());
        std::string after = saved();
        FUZZ_CHECK(message.empty() || after == before);
        before = std::move(after);
    }
    // What the script has made is a corpus.
    tables_init();
    reset_forest();
    read_forest(before, "");
    FUZZ_CHECK(saved() == before);
    return 0;
}
