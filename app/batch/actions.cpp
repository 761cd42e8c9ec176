// The table of actions.
#include "app/batch/layout_action.hpp"
#include "app/batch/options.hpp"
#include "app/batch/statistics.hpp"

namespace brindle::batch {

std::span<const Action> actions() {
    static constexpr Action table[] = {
        {"info", "how many trees, nodes and labels the corpus has", "Writes lines NAME, tab, value.",
         nothing_more, run_info},
        {"layout", "where the nodes of a tree stand",
         "Writes a line for the tree (width, height) and one a node: path, x, and where its category, its "
         "tag and its "
         "word start.",
         one_tree | size_choice | punctuation_flag, run_layout},
        {"tables", "the label statistics, whole", "Writes tab-separated lines in the order of the tables.",
         nothing_more, run_tables},
    };
    return table;
}

}  // namespace brindle::batch
