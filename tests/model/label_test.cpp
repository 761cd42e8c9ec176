#include "model/label.hpp"

#include <gtest/gtest.h>

#include <set>

namespace brindle {
namespace {

// Texts of every length up to 40 that differ in any one byte.
TEST(labels, equal_texts_have_one_record_and_others_have_others) {
    Labels labels;
    std::vector<std::string> texts;
    for (std::size_t length = 0; length <= 40; ++length) {
        const std::string text(length, 'a');
        texts.push_back(text);
        for (std::size_t at = 0; at < length; ++at) texts.push_back(std::string(text).replace(at, 1, "\xff"));
    }
    std::set<const Label *> records;
    for (const std::string &text : texts) {
        EXPECT_EQ(labels.find(text), nullptr);
        Label *const label = labels.intern(text);
        EXPECT_EQ(label->view(), text);
        EXPECT_EQ(label->text()[text.size()], '\0');
        EXPECT_TRUE(records.insert(label).second) << text;
    }
    for (const std::string &text : texts) EXPECT_EQ(labels.intern(text), labels.find(text));
}

// What lists labels lists them in this order, so it may never change.
TEST(labels, buckets) {
    EXPECT_EQ(hash(""), 0u);
    EXPECT_EQ(hash("NP"), 1328u);
    EXPECT_EQ(hash("internationalisation"), 1519u);
    EXPECT_EQ(hash("caf\xc3\xa9"), 1881u);
    EXPECT_EQ(hash("b\xc3\xa9\xc3\xa8x"), 715u);
}

}  // namespace
}  // namespace brindle
