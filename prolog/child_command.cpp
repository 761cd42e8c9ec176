#include "prolog/child_command.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace brindle {

namespace fs = std::filesystem;

namespace {

bool is_blank(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

bool is_program(const fs::path &path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::vector<std::string> command_words(std::string_view command) {
    std::vector<std::string> words;
    std::optional<std::string> word;
    char quote = 0;
    for (const char c : command) {
        if (quote ? c == quote : (c == '\'' || c == '"')) {
            quote = quote ? '\0' : c;
            if (!word) word.emplace();
        } else if (!quote && is_blank(c)) {
            if (word) words.push_back(*std::exchange(word, std::nullopt));
        } else {
            if (!word) word.emplace();
            word->push_back(c);
        }
    }
    if (word) words.push_back(*word);
    return words;
}

bool is_on_path(const std::string &program) {
    if (program.find('/') != std::string::npos) return is_program(program);
    const char *path = std::getenv("PATH");
    std::string_view rest = path ? path : "/usr/local/bin:/usr/bin:/bin";
    while (true) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (is_program(fs::path(end == 0 ? "." : rest.substr(0, end)) / program)) return true;
        if (end == rest.size()) return false;
        rest.remove_prefix(end + 1);
    }
}

std::string find_bridge() {
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    for (const char *place : {"../share/brindle/bridge.pl", "../prolog/bridge.pl"}) {
        const fs::path bridge = (folder / place).lexically_normal();
        if (fs::is_regular_file(bridge, error)) return bridge.string();
    }
    return {};
}

std::vector<std::string> no_prolog_child() {
    return {"cat"};
}

std::vector<std::string> default_child(const std::string &corpus) {
    const char *command = std::getenv("BRINDLE_PROLOG");
    std::vector<std::string> words = command_words(command ? command : "");
    if (!words.empty()) return words;
    const std::string bridge = find_bridge();
    if (bridge.empty() || !is_on_path("swipl")) return no_prolog_child();
    return {"swipl", "-q", bridge, "--", corpus};
}

}  // namespace brindle
