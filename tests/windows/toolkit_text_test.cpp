// Texts between the locale and the screen, undo, the places of notices, the X options: no windows needed.
#include <gtest/gtest.h>

#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "toolkit/display.hpp"
#include "toolkit/history.hpp"
#include "toolkit/notice_layout.hpp"
#include "toolkit/text.hpp"
#include "toolkit/x_options.hpp"
#include "windows/x_server.hpp"

namespace brindle::tk {
namespace {

struct Locale {
    explicit Locale(const char *name) : known(std::setlocale(LC_CTYPE, name) != nullptr) {}
    ~Locale() { std::setlocale(LC_CTYPE, "C"); }
    bool known;
};

TEST(text, any_bytes_come_back_as_they_were) {
    const Locale locale("C.UTF-8");
    ASSERT_TRUE(locale.known);
    for (const std::string text : {"plain", "caf\xC3\xA9", "bad \xE9\xFF", "cut \xE2\x82", "\xC0\xAF",
                                   "\xED\xA0\x80", "\xF4\x8F\xBE\x85 private"}) {
        EXPECT_EQ(from_display(to_display(text)), text);
    }
    EXPECT_EQ(to_display("caf\xC3\xA9"), "caf\xC3\xA9");
    std::string_view bad = "\xFFz";
    EXPECT_EQ(next_character(bad), U'\xFFFD');
    EXPECT_EQ(next_character(bad), U'z');
}

TEST(text, bytes_above_ascii_mean_nothing_in_the_c_locale_but_survive) {
    const Locale locale("C");
    EXPECT_EQ(from_display(to_display("caf\xE9")), "caf\xE9");
    EXPECT_EQ(from_display("\xE2\x82\xAC"), "?");
}

// Few systems have an 8-bit locale; most can make one.
bool make_latin_1(const std::string &directory) {
    const std::string target = directory + "/en_US.ISO-8859-1";
    windows::Process localedef({"localedef", "-i", "en_US", "-f", "ISO-8859-1", target}, {}, "/dev/null");
    localedef.wait();
    return std::filesystem::exists(target);
}

TEST(text, an_8_bit_locale_is_converted_both_ways) {
    const auto directory = std::filesystem::temp_directory_path() / ("locales-" + std::to_string(getpid()));
    std::filesystem::create_directory(directory);
    const bool made = make_latin_1(directory);
    setenv("LOCPATH", directory.c_str(), 1);
    const Locale locale("en_US.ISO-8859-1");
    unsetenv("LOCPATH");
    std::filesystem::remove_all(directory);
    if (!made || !locale.known) GTEST_SKIP() << "no 8-bit locale can be made";
    EXPECT_EQ(to_display("caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(from_display("caf\xC3\xA9"), "caf\xE9");
}

TEST(text, a_character_that_is_cut_waits_for_its_rest) {
    const Locale locale("C.UTF-8");
    EXPECT_EQ(unfinished_tail("ab"), 0U);
    EXPECT_EQ(unfinished_tail("ab\xC3"), 1U);
    EXPECT_EQ(unfinished_tail("ab\xE2\x82"), 2U);
    EXPECT_EQ(unfinished_tail("ab\xE2\x82\xAC"), 0U);
}

TEST(text, messages_lose_what_cannot_be_shown) {
    EXPECT_EQ(clean_message("You cannot use '/'; it is\n\x1b\n \t\t\t\tdefined"),
              "You cannot use '/'; it is\ndefined");
    EXPECT_EQ(clean_message("\nWord: dog\n\nNumber: 3\n"), "Word: dog\n\nNumber: 3");
    EXPECT_EQ(clean_message("a\tb"), "a b");
    EXPECT_EQ(clean_message("\n\x1b\n"), "");
}

// A text that remembers its edits, as an editor does.
struct Edited {
    std::string text;
    History history;
    void replace(std::size_t at, std::size_t count, const std::string &with) {
        history.record({at, text.substr(at, count), with});
        text.replace(at, count, with);
    }
    void apply(const std::optional<TextEdit> &edit, bool forward) {
        ASSERT_TRUE(edit.has_value());
        const std::string &out = forward ? edit->deleted : edit->inserted;
        text.replace(edit->at, out.size(), forward ? edit->inserted : edit->deleted);
    }
};

TEST(history, typing_is_undone_by_words_and_deleting_as_a_whole) {
    Edited edited;
    for (const char c : std::string("two words")) edited.replace(edited.text.size(), 0, std::string(1, c));
    edited.apply(edited.history.undo(), false);
    EXPECT_EQ(edited.text, "two ");
    edited.apply(edited.history.redo(), true);
    EXPECT_EQ(edited.text, "two words");
    for (int n = 0; n < 3; ++n) edited.replace(edited.text.size() - 1, 1, "");
    EXPECT_EQ(edited.text, "two wo");
    edited.apply(edited.history.undo(), false);
    EXPECT_EQ(edited.text, "two words");
    edited.apply(edited.history.undo(), false);
    edited.apply(edited.history.undo(), false);
    EXPECT_EQ(edited.text, "");
    EXPECT_FALSE(edited.history.undo().has_value());
}

TEST(history, a_new_edit_ends_what_could_be_redone) {
    Edited edited;
    edited.replace(0, 0, "long piece");
    edited.replace(0, 4, "short");
    edited.apply(edited.history.undo(), false);
    edited.replace(0, 0, "x");
    EXPECT_FALSE(edited.history.redo().has_value());
    edited.apply(edited.history.undo(), false);
    EXPECT_EQ(edited.text, "long piece");
}

TEST(notice, its_place_is_beside_the_point_and_on_the_screen) {
    setenv("DISPLAY", windows::XServer::get().name().c_str(), 1);  // pixels are those of a screen
    x_options().display.clear();
    const Box area{0, 0, 1000, 800};
    const Size size{300, 120};
    for (int x = 0; x < 1000; x += 37) {
        for (int y = 0; y < 800; y += 31) {
            const NoticePosition found = beside({x, y}, size, area);
            const Box box{found.at.x, found.at.y, size.w, size.h};
            EXPECT_FALSE(box.contains({x, y})) << x << ' ' << y;
            EXPECT_TRUE(box.x >= 0 && box.y >= 0 && box.x + box.w <= 1000 && box.y + box.h <= 800)
                << x << ' ' << y;
        }
    }
    EXPECT_EQ(beside({500, 400}, {900, 700}, area).side, NoticePosition::Side::none);
}

TEST(options, x_options_leave_the_command_line) {
    std::vector<std::string> words{"prog",      "-display",  ":9",      "-w",     "graphs",
                                   "-geometry", "10x10+5+5", "-iconic", "corpus", "-fg"};
    std::vector<char *> argv;
    for (std::string &word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    int argc = 10;
    init(argc, argv.data());
    ASSERT_EQ(argc, 5);
    const std::vector<std::string> left(argv.begin(), argv.begin() + argc);
    EXPECT_EQ(left, (std::vector<std::string>{"prog", "-w", "graphs", "corpus", "-fg"}));
    EXPECT_EQ(x_options().display, ":9");
    EXPECT_EQ(x_options().geometry, "10x10+5+5");
    EXPECT_TRUE(x_options().iconic);
}

}  // namespace
}  // namespace brindle::tk
