// The table of actions.
#include "app/batch/edit_script.hpp"
#include "app/batch/options.hpp"
#include "app/batch/statistics.hpp"

namespace brindle::batch {

std::span<const Action> actions() {
    static constexpr Action table[] = {
        {"info", "how many trees, nodes and labels the corpus has", "Writes lines NAME, tab, value.",
         nothing_more, run_info},
        {"tables", "the label statistics, whole", "Writes tab-separated lines in the order of the tables.",
         nothing_more, run_tables},
    };
    return table;
}

}  // namespace brindle::batch
