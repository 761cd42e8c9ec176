#include "base/file_names.hpp"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/text.hpp"

namespace brindle {

namespace fs = std::filesystem;

namespace {

// The names in the directory that begin with the part. Without any: there is no such directory, either.
std::vector<std::string> names_beginning_with(const std::string &part, const std::string &directory) {
    std::vector<std::string> names;
    std::error_code error;
    const fs::path place = directory.empty() ? fs::path(".") : fs::path(directory);
    for (fs::directory_iterator entry(place, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const bool hidden = part.empty() && name.front() == '.';
        if (name.starts_with(part) && !hidden) names.push_back(name);
    }
    return names;
}

// What they begin with alike, no character of it cut in two.
std::string common_beginning(const std::vector<std::string> &names) {
    std::string_view common = names.front();
    for (const std::string &name : names) {
        const auto differs = std::ranges::mismatch(common, name).in1;
        common = common.substr(0, static_cast<std::size_t>(differs - common.begin()));
    }
    const auto in_character = [&](std::size_t at) {
        return at < names.front().size() && (static_cast<unsigned char>(names.front()[at]) & 0xC0) == 0x80;
    };
    std::size_t size = common.size();
    while (text_mode() == TextMode::utf8 && size > 0 && in_character(size)) --size;
    return std::string(common.substr(0, size));
}

}  // namespace

std::string complete_file_name(const std::string &typed) {
    const std::size_t slash = typed.rfind('/');
    const std::string directory = slash == typed.npos ? "" : typed.substr(0, slash + 1);
    const std::string part = typed.substr(directory.size());
    const std::vector<std::string> names = names_beginning_with(part, directory);
    if (names.empty()) return typed;
    const std::string completed = directory + common_beginning(names);
    if (completed.size() < typed.size()) return typed;
    std::error_code error;
    return names.size() == 1 && fs::is_directory(completed, error) ? completed + "/" : completed;
}

}  // namespace brindle
