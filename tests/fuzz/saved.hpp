#pragma once
// The corpus in memory as a file would hold it.
#include <string>

#include "check.hpp"
#include "corpus/writetrees.hpp"
#include "tests/support/files.hpp"

inline std::string saved() {
    brindle::test::StringSink sink;
    FUZZ_CHECK(brindle::save_corpus(sink));
    return sink.text;
}
