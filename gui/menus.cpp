#include "gui/menus.hpp"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "gui/commands_table.hpp"

namespace brindle {

namespace {

// A menu is a table of entries; one with entries of its own pulls a menu right, the others name a command.
struct NodeEntry {
    const char *label;
    NodeCommand Commands::*command;
    std::span<const NodeEntry> entries;
};

constexpr NodeEntry clear_entries[] = {
    {"this node", &Commands::clear_node, {}},
    {"this tree", &Commands::clear_tree, {}},
};

constexpr NodeEntry undo_all_entries[] = {
    {"on this node", &Commands::undo_all_node, {}},
    {"on this tree", &Commands::undo_all_tree, {}},
};

constexpr NodeEntry undo_entries[] = {
    {"undo last edit", &Commands::undo_node, {}},
    {"undo all edits", nullptr, undo_all_entries},
};

constexpr NodeEntry tag_entries[] = {
    {"edit", &Commands::edit_node, {}}, {"select", &Commands::tag_select, {}},
    {"copy", &Commands::copy_node, {}}, {"clear", nullptr, clear_entries},
    {"undo", nullptr, undo_entries},    {"filter", &Commands::filter_node, {}},
};

constexpr NodeEntry subtree_entries[] = {
    {"edit syntax", &Commands::edit_syntax, {}},
    {"Evaluate subtree", &Commands::evaluate, {}},
    {"Show expanded annotation", &Commands::show_expansion, {}},
    {"Expand annotations", &Commands::make_expansions, {}},
    {"Evaluation predicate", &Commands::set_predicate, {}},
    {"Export to LaTeX", &Commands::show_latex_requestor, {}},
};

struct PreferenceEntry {
    const char *label;
    EntryCommand Commands::*command;
    std::span<const char *const> choices;  // of the menu it pulls right
};

constexpr const char *font_styles[] = {"lucida-normal", "lucida-bold",    "lucida-italic", "times-roman",
                                       "times-normal",  "times-bold",     "times-italic",  "courier-normal",
                                       "courier-bold",  "courier-italic", "serif-normal",  "serif-bold",
                                       "serif-italic"};
constexpr const char *font_sizes[] = {"default", "small", "medium", "large"};
constexpr const char *punctuation_choices[] = {show_punctuation_entry.data(), "don't show it"};
constexpr std::string_view words_by_scale[] = {"small", "medium", "default", "large"};

constexpr PreferenceEntry preference_entries[] = {
    {"font-style", &Commands::styles, font_styles},
    {"font-size", &Commands::sizes, font_sizes},
    {"tree-size", &Commands::controls, {}},
    {"punctuation", &Commands::show_punc, punctuation_choices},
};

// The node hangs on the menu that was shown, whichever of its submenus the entry is in.
tk::MenuItem::Callback node_callback(NodeCommand Commands::*command) {
    return [command](tk::MenuItem &item) {
        tk::Menu &shown = item.menu().top();
        TreeWindow &tw = window_of(shown);
        if (Node *node = node_of(shown)) (commands.*command)(tw, *node);
    };
}

tk::MenuItem::Callback entry_callback(EntryCommand Commands::*command) {
    return [command](tk::MenuItem &item) {
        TreeWindow &tw = window_of(item.menu());
        (commands.*command)(tw, item);
    };
}

void fill(tk::Menu &menu, TreeWindow &tw, std::span<const NodeEntry> entries) {
    set_window(menu, tw);
    for (const NodeEntry &entry : entries) {
        if (entry.entries.empty())
            menu.add_item(entry.label, node_callback(entry.command));
        else
            fill(menu.add_submenu(entry.label), tw, entry.entries);
    }
}

std::unique_ptr<tk::Menu> node_menu(const char *title, TreeWindow &tw, std::span<const NodeEntry> entries) {
    auto menu = std::make_unique<tk::Menu>(title);
    fill(*menu, tw, entries);
    return menu;
}

}  // namespace

std::unique_ptr<tk::Menu> tag_menu(TreeWindow &tw) {
    return node_menu("Semantic Tag", tw, tag_entries);
}

std::unique_ptr<tk::Menu> subtree_menu(TreeWindow &tw) {
    return node_menu("Subtrees", tw, subtree_entries);
}

std::unique_ptr<tk::Menu> preferences(TreeWindow &tw) {
    auto menu = std::make_unique<tk::Menu>("Preferences");
    set_window(*menu, tw);
    for (const PreferenceEntry &entry : preference_entries) {
        const auto callback = entry_callback(entry.command);
        if (entry.choices.empty()) {
            menu->add_item(entry.label, callback);
            continue;
        }
        tk::Menu &submenu = menu->add_submenu(entry.label);
        set_window(submenu, tw);
        for (const char *choice : entry.choices) submenu.add_item(choice, callback);
    }
    return menu;
}

int font_scale_of(std::string_view entry) {
    const auto at = std::find(std::begin(words_by_scale), std::end(words_by_scale), entry);
    return at == std::end(words_by_scale) ? -1 : static_cast<int>(at - std::begin(words_by_scale));
}

void mark_preferences(TreeWindow &tw) {
    const bool shown = tw.show_punctuation;
    for (const auto &entry : tw.prefs_menu->items()) {
        if (!entry->submenu()) continue;
        for (const auto &choice : entry->submenu()->items()) {
            const std::string &label = choice->label();
            choice->set_checked(entry->label() == "punctuation" ? (label == show_punctuation_entry) == shown
                                : entry->label() == "font-size" ? font_scale_of(label) == tw.font_scale
                                                                : label == tw.font_name);
        }
    }
}

}  // namespace brindle
