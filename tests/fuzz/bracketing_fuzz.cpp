// The two checks of an edited bracketing let pass what the reader reads, and nothing else; what they let pass
// can replace a subtree, and the statistics follow.
#include "check.hpp"
#include "corpus/readtrees.hpp"
#include "editor/bracketing.hpp"
#include "editor/replacement.hpp"
#include "editor/subtree_text.hpp"
#include "model/text.hpp"
#include "model/traversal.hpp"
#include "stats/tables.hpp"
#include "stats/verify.hpp"

namespace {

using namespace brindle;

bool is_read(std::string_view text) {
    tables_init();
    TreeEntry entry;
    try {
        readtree(entry, text);
    } catch (const FormatError &) {
        return false;
    }
    do_with(entry.root, release_node);
    return true;
}

// One fault the checks alone look for: the reader takes what runs into a word for a part of it.
bool is_for_the_checks_alone(const std::string &message) {
    return message.find("Terminal node starting with") != std::string::npos;
}

void replace_a_subtree(const std::string &text) {
    tables_init();
    reset_forest();
    read_forest("*\n( (S|s(d1) (NP|n A/a B/b) C|c/c) )\n", "");
    const std::string before = write_tree_to_editor(forest[0].root);
    const std::string message = replace_subtree(0, forest[0].root->dtrs, text);
    FUZZ_CHECK(verify_tables().empty());
    FUZZ_CHECK(message.empty() || write_tree_to_editor(forest[0].root) == before);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    if (check_tree_in_editor(text).empty()) {
        const std::string message = check_readtree(text);
        FUZZ_CHECK(message.empty() ? is_read(text) : is_for_the_checks_alone(message) || !is_read(text));
    }
    replace_a_subtree(text);
    return 0;
}
