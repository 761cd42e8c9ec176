#include "model/path.hpp"

#include <algorithm>
#include <charconv>
#include <vector>

#include <fmt/format.h>

namespace brindle {

std::string path_of(const Node *node) {
    if (!node->mother()) return ".";
    std::vector<int> positions;
    for (; node->mother(); node = node->mother()) positions.push_back(node->position());
    std::reverse(positions.begin(), positions.end());
    return fmt::format("{}", fmt::join(positions, "."));
}

Node *node_at(Node *root, std::string_view path) {
    if (path == ".") return root;
    const char *p = path.data();
    const char *const end = p + path.size();
    Node *node = root;
    while (true) {
        int position = 0;
        const auto [after, fault] = std::from_chars(p, end, position);
        if (fault != std::errc() || position < 1 || *p == '-') return nullptr;
        node = node->dtrs();
        while (node && --position) node = node->sister();
        if (!node || after == end) return node;
        if (*after != '.') return nullptr;
        p = after + 1;
    }
}

}  // namespace brindle
