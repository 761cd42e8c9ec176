#include "commands/install.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>

#include "commands/subjects.hpp"

namespace brindle {
namespace {

// The table holds nothing but function pointers, of one size. Windows call its entries without asking.
bool all_installed(const Commands &table) {
    using Entry = void (*)();
    const auto entries = std::bit_cast<std::array<Entry, sizeof(Commands) / sizeof(Entry)>>(table);
    return std::none_of(entries.begin(), entries.end(), [](Entry entry) { return entry == nullptr; });
}

}  // namespace

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
    if (!all_installed(commands)) std::abort();
}

}  // namespace brindle
