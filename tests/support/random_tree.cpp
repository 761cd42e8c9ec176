#include "support/random_tree.hpp"

#include <vector>

namespace brindle::test {
namespace {

struct MadeNode {
    std::string labels;
    std::vector<std::size_t> dtrs;
};

void write(const std::vector<MadeNode> &nodes, std::size_t n, std::string &out) {
    out += '(' + nodes[n].labels;
    for (const std::size_t d : nodes[n].dtrs) write(nodes, d, out += ' ');
    out += ')';
}

}  // namespace

std::string random_tree(std::mt19937 &random, const RandomTreeShape &shape) {
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto label = [&](int longest) {
        const auto length = static_cast<std::size_t>(1 + below(longest));
        return std::string(length, static_cast<char>('a' + below(3)));
    };
    std::vector<MadeNode> nodes(1);
    const int size = 1 + below(shape.max_nodes);
    while (static_cast<int>(nodes.size()) < size) {
        const bool spine = below(100) < shape.spine_percent;
        const std::size_t mother = spine ? nodes.size() - 1 : random() % nodes.size();
        if (static_cast<int>(nodes[mother].dtrs.size()) >= shape.max_daughters) continue;
        nodes[mother].dtrs.push_back(nodes.size());
        nodes.emplace_back();
    }
    for (MadeNode &n : nodes) {
        n.labels = below(100) < shape.punctuation_percent ? "." : label(shape.longest_label);
        if (!n.dtrs.empty() && shape.longest_mother_tag > 0)
            n.labels += '|' + label(shape.longest_mother_tag);
        else if (below(100) < shape.tag_percent)
            n.labels += '|' + label(shape.longest_label);
        if (n.dtrs.empty() && below(100) < shape.word_percent) n.labels += '/' + label(shape.longest_label);
    }
    std::string out;
    write(nodes, 0, out);
    return out;
}

}  // namespace brindle::test
