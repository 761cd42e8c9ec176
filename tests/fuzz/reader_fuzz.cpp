// Any bytes are a corpus or a format error; a corpus is sound, and saved it is the same corpus again. Read in
// small steps it is what it is when it is read at once.
#include "base/text.hpp"
#include "check.hpp"
#include "corpus/reader.hpp"
#include "stats/verify.hpp"
#include "tests/support/files.hpp"

namespace {

using namespace brindle;
using test::saved;

// The corpus as it is saved, or the format error.
std::string read_and_saved(std::string_view text, std::size_t bytes_a_step, bool &is_read) {
    Corpus corpus;
    try {
        CorpusReader reader(corpus, text);
        while (reader.read_some(bytes_a_step)) {
        }
        reader.finish();
    } catch (const FormatError &fault) {
        FUZZ_CHECK(!fault.message.empty() && fault.place.line >= 1 && fault.place.column >= 1);
        is_read = false;
        return fault.message;
    }
    FUZZ_CHECK(verify(corpus).empty());
    is_read = true;
    return saved(corpus);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    set_text_locale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    bool is_read = false;
    const std::string once = read_and_saved(text, text.size(), is_read);
    FUZZ_CHECK(read_and_saved(text, 1, is_read) == once);
    if (is_read) FUZZ_CHECK(read_and_saved(once, once.size(), is_read) == once && is_read);
    return 0;
}
