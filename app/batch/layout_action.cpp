#include "app/batch/layout_action.hpp"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "app/batch/session.hpp"
#include "display/layout.hpp"
#include "display/shown_nodes.hpp"
#include "model/path.hpp"

namespace brindle::batch {
namespace {

constexpr int pixels_a_byte = 8;
constexpr std::string_view sizes[nr_of_font_scales] = {"small", "medium", "default", "large"};

int scale_of(std::string_view size) {
    return static_cast<int>(std::find(std::begin(sizes), std::end(sizes), size) - std::begin(sizes));
}

// An x position, or nothing where there is no text.
std::string position(const Label *label, int x) {
    return label ? std::to_string(x) : std::string();
}

}  // namespace

int run_layout(const Options &options) {
    load(options);
    TreeEntry &tree = forest[static_cast<std::size_t>(tree_index(options.tree))];
    TreeView view;
    view.show_punctuation = options.punctuation;
    LayoutParams params;
    choose_font_scale(params, scale_of(options.size));
    ByteMeasure measure(pixels_a_byte);
    tree_layout(view, params, measure, tree);

    std::string text = fmt::format("tree\t{}\t{}\n", tree.width, tree.height);
    const ShownNodes nodes(tree.root, options.punctuation);
    for (const ShownNode &shown : nodes.all()) {
        const Node *n = shown.node;
        fmt::format_to(std::back_inserter(text), "node\t{}\t{}\t{}\t{}\t{}\n", path_of(n), n->x, n->syn_x,
                       position(n->sem, n->sem_x), position(n->lex, n->lex_x));
    }
    return put_out(options, text);
}

}  // namespace brindle::batch
