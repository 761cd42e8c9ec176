#include "base/file_names.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/text.hpp"

namespace brindle::test {
namespace {

namespace fs = std::filesystem;

TEST(file_names, are_completed_as_far_as_they_are_alike) {
    const std::string place = testing::TempDir() + "/file-names/";
    fs::remove_all(place);
    fs::create_directories(place + "corpora/old");
    for (const char *name :
         {"towns.trees", "towns.trees.bak", ".hidden", "corpora/gum.trees", "t\303\251", "t\303\250"})
        std::ofstream(place + name) << "x";
    const auto completed = [&](const std::string &typed) {
        const std::string text = complete_file_name(place + typed);
        return text.starts_with(place) ? text.substr(place.size()) : text;
    };
    EXPECT_EQ(completed("to"), "towns.trees");
    EXPECT_EQ(completed("towns.trees"), "towns.trees") << "another one begins like it";
    EXPECT_EQ(completed("towns.trees."), "towns.trees.bak");
    EXPECT_EQ(completed("c"), "corpora/");
    EXPECT_EQ(completed("corpora/o"), "corpora/old/");
    EXPECT_EQ(completed("corpora/g"), "corpora/gum.trees");
    EXPECT_EQ(completed("corpora/"), "corpora/") << "nothing alike";
    EXPECT_EQ(completed("."), ".hidden");
    EXPECT_EQ(completed("x"), "x");
    EXPECT_EQ(completed("no/such"), "no/such");
    const TextMode before = text_mode();
    set_text_mode(TextMode::utf8);
    EXPECT_EQ(completed("t\303"), "t\303") << "never half a character more";
    fs::remove(place + "towns.trees");
    fs::remove(place + "towns.trees.bak");
    EXPECT_EQ(completed("t"), "t");
    set_text_mode(before);
    fs::remove_all(place);
}

}  // namespace
}  // namespace brindle::test
