#include "commands/install.hpp"

#include "commands/subjects.hpp"

namespace brindle {

void install_commands() {
    install_navigation(commands);
    install_checking(commands);
    install_saving(commands);
    install_quitting(commands);
    install_node_menu(commands);
    install_preferences(commands);
    install_tree_sizes(commands);
    install_information(commands);
    install_selectors(commands);
    install_search(commands);
    install_proposing(commands);
    install_batch_box(commands);
    install_batch_actions(commands);
    install_node_runs(commands);
    install_prolog_window(commands);
    install_formulas(commands);
    install_latex_export(commands);
    install_syntax_editor(commands);
}

}  // namespace brindle
