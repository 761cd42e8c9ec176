// Every test program runs in C.UTF-8, whatever the environment says.
#include <clocale>
#include <cstdlib>

#include <gtest/gtest.h>

#include "base/text.hpp"

namespace brindle::test {
namespace {

struct Utf8Locale : testing::Environment {
    void SetUp() override {
        setenv("LC_ALL", "C.UTF-8", 1);
        set_text_locale();
    }
};

const auto *const utf8_locale = testing::AddGlobalTestEnvironment(new Utf8Locale);

}  // namespace
}  // namespace brindle::test
