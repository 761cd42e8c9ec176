// Any bytes are a corpus or a format error; a corpus is sound, and saved it is the same corpus again.
#include "check.hpp"
#include "corpus/readtrees.hpp"
#include "model/text.hpp"
#include "saved.hpp"
#include "stats/tables.hpp"
#include "stats/verify.hpp"

namespace {

using namespace brindle;

void reset_all() {
    tables_init();
    reset_forest();
}

void read_write_and_read_again(std::string_view text) {
    try {
        read_forest(text, "");
    } catch (const FormatError &fault) {
        FUZZ_CHECK(!fault.message.empty() && fault.line >= 1);
        return;
    }
    FUZZ_CHECK(verify_tables().empty());
    const std::string once = saved();
    const int nr_of_trees = amount;
    reset_all();
    read_forest(once, "");  // a FormatError here ends the run
    FUZZ_CHECK(amount == nr_of_trees);
    FUZZ_CHECK(saved() == once);
}

// The syntax editor reads one node from the start of a text.
void read_one_tree(std::string_view text) {
    TreeEntry entry;
    try {
        readtree(entry, text);
    } catch (const FormatError &) {
        return;
    }
    forest.resize(1);
    forest[0].root = entry.root;
    register_root(entry.root, 0);
    amount = 1;
    FUZZ_CHECK(verify_tables().empty());
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    reset_all();
    read_write_and_read_again(text);
    reset_all();
    read_one_tree(text);
    reset_all();
    return 0;
}
