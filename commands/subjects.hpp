#pragma once
// Each file of commands/ is one subject and puts its commands into the table.
#include "gui/commands_table.hpp"

namespace brindle {

void install_navigation(Commands &table);   // "Next", "Previous", "Tree #"
void install_checking(Commands &table);     // "Check:"
void install_saving(Commands &table);       // "Save", "Save as"
void install_quitting(Commands &table);     // "Close", "Quit"
void install_node_menu(Commands &table);    // "edit", "clear", "undo"
void install_preferences(Commands &table);  // fonts, punctuation
void install_tree_sizes(Commands &table);   // "Tree Size Controls"
void install_information(Commands &table);  // the ADJUST button on a node

}  // namespace brindle
