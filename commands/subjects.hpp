#pragma once
// Each file of commands/ is one subject and puts its commands into the table.
#include "gui/commands_table.hpp"

namespace brindle {

void install_navigation(Commands &table);     // "Next", "Previous", "Tree #"
void install_checking(Commands &table);       // "Check:"
void install_saving(Commands &table);         // "Save", "Save as"
void install_quitting(Commands &table);       // "Close", "Quit"
void install_node_menu(Commands &table);      // "edit", "clear", "undo"
void install_preferences(Commands &table);    // fonts, punctuation
void install_tree_sizes(Commands &table);     // "Tree Size Controls"
void install_information(Commands &table);    // the ADJUST button on a node
void install_selectors(Commands &table);      // "select", "copy"
void install_search(Commands &table);         // "Search & Replace"
void install_proposing(Commands &table);      // "Propose"
void install_batch_box(Commands &table);      // the choice of trees, "Batch", "Abort"
void install_batch_actions(Commands &table);  // the actions that work in one go
void install_node_runs(Commands &table);      // the actions that Prolog drives
void install_prolog_window(Commands &table);  // the query field
void install_formulas(Commands &table);       // "filter", "Evaluate subtree", expansions, the predicate
void install_latex_export(Commands &table);   // "Export to LaTeX"
void install_syntax_editor(Commands &table);  // "edit syntax"

}  // namespace brindle
