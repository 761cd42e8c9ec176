#include "windows/node_menu.hpp"

#include <fmt/format.h>

#include "edit/change.hpp"
#include "edit/history.hpp"
#include "model/traversal.hpp"
#include "windows/command_window.hpp"
#include "windows/formulas.hpp"
#include "windows/label_editors.hpp"
#include "windows/selector.hpp"
#include "windows/size_controller.hpp"
#include "windows/syntax_editor.hpp"
#include "windows/tree_window.hpp"

namespace brindle {
namespace {

// Applies the function to every node of the shown tree: one step to undo.
template <class Function>
void with_tree(TreeWindow &window, const char *name, Function &&function) {
    const HistoryStep step(window.corpus(), fmt::format("{}, tree {}", name, window.tree_number() + 1));
    if (const Tree *tree = window.current_tree()) do_with(tree->root, function);
}

constexpr const char *font_styles[] = {"lucida-normal", "lucida-bold",    "lucida-italic", "times-roman",
                                       "times-normal",  "times-bold",     "times-italic",  "courier-normal",
                                       "courier-bold",  "courier-italic", "serif-normal",  "serif-bold",
                                       "serif-italic"};

constexpr std::pair<const char *, int> font_sizes[] = {
    {"default", 2}, {"small", 0}, {"medium", 1}, {"large", 3}};

}  // namespace

void add_choice(QMenu &menu, const QString &label, bool chosen, std::function<void()> f) {
    QAction *action = menu.addAction(label, &menu, std::move(f));
    auto *group = menu.findChild<QActionGroup *>();
    action->setActionGroup(group ? group : new QActionGroup(&menu));
    action->setCheckable(true);
    action->setChecked(chosen);
}

void fill_tag_menu(QMenu &menu, TreeWindow &window, Node &node) {
    Corpus &corpus = window.corpus();
    Node *const n = &node;
    menu.addAction("edit", &menu, [&window, n] { edit_tag(window, *n); });
    menu.addAction("select", &menu, [&window, n] { offer_tags(window, *n); });
    menu.addAction("copy", &menu, [&window, n] { window.begin_copy(*n); });
    QMenu *clear_menu = menu.addMenu("clear");
    clear_menu->addAction("this node", &menu, [&corpus, n] { clear(corpus, n); });
    clear_menu->addAction("this tree", &menu, [&window, &corpus] {
        with_tree(window, "Clear", [&corpus](Node *each) { clear(corpus, each); });
    });
    QMenu *undo = menu.addMenu("undo");
    undo->addAction("undo last edit", &menu, [&corpus, n] { undo_last(corpus, n); });
    QMenu *all = undo->addMenu("undo all edits");
    all->addAction("on this node", &menu, [&corpus, n] { undo_all(corpus, n); });
    all->addAction("on this tree", &menu, [&window, &corpus] {
        with_tree(window, "Undo all edits", [&corpus](Node *each) { undo_all(corpus, each); });
    });
    menu.addAction("filter", &menu, [&window, n] { filter_node(window, *n); });
}

void fill_subtree_menu(QMenu &menu, TreeWindow &window, Node &node) {
    Node *const n = &node;
    menu.addAction("edit syntax", &menu, [&window, n] { edit_syntax(window, *n); });
    menu.addAction("Evaluate subtree", &menu, [&window, n] { evaluate_subtree(window, *n); });
    menu.addAction("Show expanded annotation", &menu, [&window, n] { show_expansion(window, *n); });
    menu.addAction("Expand annotations", &menu, [&window, n] { expand_annotations(window, *n); });
    menu.addAction("Evaluation predicate", &menu, [&window] { ask_for_predicate(window); });
    menu.addAction("Export to LaTeX", &menu, [&window, n] { window.latex_requestor->open_on(n); });
}

void fill_preferences(QMenu &menu, TreeWindow &window) {
    QMenu *styles = menu.addMenu("font-style");
    for (const char *name : font_styles)
        add_choice(*styles, name, window.font_name() == name,
                   [&window, name] { window.set_font_name(name); });
    QMenu *sizes = menu.addMenu("font-size");
    for (const auto &[label, scale] : font_sizes)
        add_choice(*sizes, label, window.params().font_scale == scale,
                   [&window, scale = scale] { window.set_font_scale(scale); });
    menu.addAction("tree-size", &menu, [&window] { window.size_controller->open_at(window.menu_place()); });
    QMenu *punctuation = menu.addMenu("punctuation");
    add_choice(*punctuation, "show it", window.shows_punctuation(),
               [&window] { window.show_punctuation(true); });
    add_choice(*punctuation, "don't show it", !window.shows_punctuation(),
               [&window] { window.show_punctuation(false); });
}

}  // namespace brindle
