// "select": the tags that checked trees give to a category or a word, to choose from; "copy".
#include <tsl/robin_set.h>

#include "commands/subjects.hpp"
#include "edit/change.hpp"
#include "gui/command_windows.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "stats/statistics.hpp"

namespace brindle {

namespace {

constexpr int lexical = 3;         // the kind of the word's selector, and info_mode when the word was hit
constexpr int category_again = 4;  // info_mode when a word has nothing to offer
constexpr std::string_view unlabeled = "(unlabeled)";

std::string row_of(const Label *tag) {
    return std::string(tag ? tag->view() : unlabeled);
}

// The checked tags of the node's category, most frequent first. Returns their number.
int add_entries(tk::List &list, const Node &node) {
    std::vector<std::string> rows;
    Statistics &statistics = *the_corpus().statistics;
    const RankedList &pairs = statistics.category_entry(node.unit())->pairs;
    for (const Unit *u = statistics.first_of(pairs); u; u = statistics.next_of_owner(u))
        if (u->checked_count > 0) rows.push_back(row_of(u->sem));
    list.set_rows(rows);
    return static_cast<int>(rows.size());
}

// The checked tags of the node's word, each once, at its first place. Returns their number.
int add_lex_entries(tk::List &list, const Node &node) {
    std::vector<std::string> rows;
    tsl::robin_set<const Label *> seen;
    Statistics &statistics = *the_corpus().statistics;
    const RankedList &units = statistics.word_entry(node.unit())->units;
    for (const Unit *u = statistics.first_of(units); u; u = statistics.next_of_owner(u))
        if (u->checked_count > 0 && seen.insert(u->sem).second) rows.push_back(row_of(u->sem));
    list.set_rows(rows);
    return static_cast<int>(rows.size());
}

void set_list_for(tk::List &list, Node &node, const TreeWindow &tw) {
    set_node(list, &node);
    set_number(list, Key::tree_number, tw.tree_number);
}

void show_selector(tk::CommandFrame &selector, tk::List &list, const Label *title, TreeWindow &tw) {
    selector.hide();
    selector.set_title(title->view());
    fit_with_title(selector);
    list.select(0);
    position_frame_from_menu(selector, *tw.annotation_menu, tw);
}

void tag_select(TreeWindow &tw, Node &node) {
    if (tw.info_mode == lexical && node.lex()) {
        set_list_for(*tw.lex_list, node, tw);
        if (add_lex_entries(*tw.lex_list, node) > 0) {
            show_selector(*tw.lex_selector, *tw.lex_list, node.lex(), tw);
            return;
        }
        tw.info_mode = category_again;
    }
    set_list_for(*tw.cat_list, node, tw);
    tw.cat_selector->hide();
    if (add_entries(*tw.cat_list, node) > 0)
        show_selector(*tw.cat_selector, *tw.cat_list, node.syn(), tw);
    else
        prompt_at_node(&node, "This category has no annotations to select", tw, false);
}

tk::List &list_of(const tk::Item &item, TreeWindow &tw) {
    return number_of(item, Key::kind) == lexical ? *tw.lex_list : *tw.cat_list;
}

void select_tag(TreeWindow &tw, tk::Item &item) {
    tk::List &list = list_of(item, tw);
    dismiss(frame_to_hide(list));
    Node *node = node_of(list);
    const int tree = number_of(list, Key::tree_number);
    const std::string row = list.selected() >= 0 ? list.row(list.selected()) : std::string();
    if (!node) return;
    if (tw.tree_number != tree) show_nr(tree, tw);
    set_tag(the_corpus(), node, row == unlabeled ? std::string_view() : std::string_view(row));
}

void where(TreeWindow &tw, tk::Item &item) {
    tk::List &list = list_of(item, tw);
    const Node *node = node_of(list);
    if (!node || list.size() == 0) return;
    const bool word = &list == tw.lex_list;
    tw.search_lex->set_value(word ? text_of(node->lex()) : std::string_view());
    tw.search_syn->set_value(word ? std::string_view() : node->syn()->view());
    tw.search_sem->set_value(list.row(std::max(list.selected(), 0)));
    position_frame_from_button(*tw.search_box, item, tw);
}

void copy_node(TreeWindow &tw, Node &node) {
    show_foot(*tw.frame, "Click on the node whose annotation \033\n\t\t\t\t\tyou want to copy to this node.");
    COPY_TO = std::make_unique<CopyRequest>(CopyRequest{&node, tw.tree_number, &tw});
}

}  // namespace

void install_selectors(Commands &all) {
    all.tag_select = tag_select;
    all.select_tag = select_tag;
    all.where = where;
    all.copy_node = copy_node;
}

}  // namespace brindle
