// The table of actions.
#include "app/batch/actions.hpp"

namespace brindle::batch {

std::span<const Action> actions() {
    static constexpr Action table[] = {
        {"info", "how many trees, nodes and labels the corpus has", "Writes lines NAME, tab, value.",
         nothing_more, run_info},
        {"tables", "the label statistics, whole", "Writes tab-separated lines in the order of the tables.",
         nothing_more, run_tables},
        {"write", "the corpus or a selection in one of four formats",
         "dop and dop2 write .encoding, dop2 also underlying_CFG, into the current directory; an output name "
         "that ends in .aug puts every tree below the extra root sss.",
         selection | write_format, run_write},
        {"check", "marks the selected trees as checked", "Writes the whole corpus.", selection, run_check},
        {"uncheck", "takes the mark from the selected trees", "Writes the whole corpus.", selection,
         run_uncheck},
        {"propose", "tags for the selected trees from the checked ones", "Writes the whole corpus.",
         selection, run_propose},
        {"evaluate", "proposes, and reports how well the tags that were there are met",
         "The report goes to the file of --report, with -o the corpus with its proposals to that.",
         selection | report_file, run_evaluate},
        {"expand", "every root's formula, written out over its daughters",
         "Every node that an expansion reaches gets its own expansion as its tag. Writes the whole corpus.",
         selection, run_expand},
        {"filter", "every tag through Prolog, whose answers become the tags",
         "Sends each tag as a query; a message that Prolog sends back replaces it. Writes the whole corpus.",
         selection | filter_options, run_filter},
        {"edit", "runs the operations of a script on the corpus",
         "Operations, one a line:\n"
         "  tag TREE PATH TEXT        category TREE PATH TEXT\n"
         "  undo TREE PATH            undo-all TREE PATH|*\n"
         "  clear TREE PATH|*         copy TREE PATH TREE PATH\n"
         "  bracket TREE PATH TEXT    propose TREE\n"
         "  check TREE                uncheck TREE\n"
         "  undo-step                 redo-step\n"
         "  saved\n"
         "Empty lines and lines that begin with # are skipped. A line that cannot be carried out ends the "
         "run: nothing is written.",
         script_file, run_edit},
        {"search", "nodes by category, word and tag; replaces labels",
         "Writes a line a match: TREE, PATH, category, tag, word. With --replace the whole corpus instead.",
         search_options, run_search},
        {"latex", "a subtree as a LaTeX document", "The document draws the tree with the ecltree package.",
         one_tree | node_path | punctuation_flag, run_latex},
        {"layout", "where the nodes of a tree stand",
         "Writes a line for the tree (width, height) and one a node: path, x, and where its category, its "
         "tag and its word start.",
         one_tree | size_choice | punctuation_flag, run_layout},
        {"validate", "the syntax editor's checks on one bracketing",
         "Says on standard error what is wrong (status 1), or nothing (status 0).", no_corpus, run_validate},
    };
    return table;
}

}  // namespace brindle::batch
