// The two checks of an edited bracketing let pass what the reader reads, and nothing else; what they let pass
// can replace a subtree, and the statistics follow.
#include "base/text.hpp"
#include "check.hpp"
#include "corpus/reader.hpp"
#include "corpus/writetrees.hpp"
#include "edit/bracketing.hpp"
#include "edit/change.hpp"
#include "stats/verify.hpp"

namespace {

using namespace brindle;

bool is_read(std::string_view text) {
    Corpus corpus;
    NodeBuilder builder(corpus);
    const char *p = text.data();
    return builder.read(p, p + text.size(), 0).kind == FaultKind::none;
}

// One fault the checks alone look for: the reader takes what runs into a word for a part of it.
bool is_for_the_checks_alone(const std::string &message) {
    return message.find("Terminal node starting with") != std::string::npos;
}

void replace_a_subtree(const std::string &text) {
    Corpus corpus;
    read_trees(corpus, "*\n( (S|s(d1) (NP|n A/a B/b) C|c/c) )\n");
    Node *const root = corpus.tree(0).root;
    const std::string before = write_tree_to_editor(root);
    const bool refused = replace_subtree(corpus, root->dtrs(), text).has_value();
    FUZZ_CHECK(verify(corpus).empty());
    FUZZ_CHECK(!refused || write_tree_to_editor(root) == before);
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
