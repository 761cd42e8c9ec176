// What asks Prolog about a node's tag or a selected subtree's formula, and the expansion of formulas.
#include "commands/formulas.hpp"

#include <fmt/format.h>

#include "commands/busy_notice.hpp"
#include "commands/prolog_window.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "prolog/checking.hpp"
#include "prolog/run_once.hpp"
#include "prolog/session.hpp"

namespace brindle {

namespace {

// True after the busy notice at the node.
bool refused_while_busy(const Node *node, TreeWindow &tw) {
    if (!the_prolog().is_busy()) return false;
    busy_notice(node, "Cannot evaluate this subtree, prolog is busy", tw);
    return true;
}

void filter_node(TreeWindow &tw, Node &node) {
    if (!node.sem()) {
        prompt_at_node(&node, "This node requires an annotation", tw, false);
        return;
    }
    if (refused_while_busy(&node, tw)) return;
    the_prolog().filter(&node, tw.predicate, &tw);
}

// Expands over the selected nodes. False after a notice at the node that is at fault.
bool expand_selected(std::string &out, Node *top, TreeWindow &tw) {
    const auto error = expand(out, the_corpus(), top, {.on_punctuation = show_hidden_in(tw)});
    if (error) show_error(*error, tw);
    return !error;
}

void evaluate(TreeWindow &tw, Node &node) {
    Node *top = top_of_selection(&node);
    std::string formula;
    if (!expand_selected(formula, top, tw) || refused_while_busy(top, tw)) return;
    the_prolog().send_query(tw.predicate.evaluation_line(formula), &tw);
}

void show_expansion(TreeWindow &tw, Node &node) {
    Node *top = top_of_selection(&node);
    std::string text;
    if (expand_selected(text, top, tw)) prompt_at_node(top, text + ".\n\n", tw, true);
}

void make_expansions(TreeWindow &tw, Node &node) {
    const auto error =
        expand_into_tags(the_corpus(), top_of_selection(&node), {.on_punctuation = show_hidden_in(tw)});
    if (error) show_error(*error, tw);
}

void set_predicate(TreeWindow &tw, Node &) {
    tk::CommandFrame &requestor = *tw.pred_requestor;
    requestor.hide();
    auto &field = static_cast<tk::TextField &>(*requestor.panel().items()[1]);
    if (!tw.predicate.is_null) field.set_value(tw.predicate.text);
    position_frame_from_menu(requestor, *tw.subtrees_menu, tw);
}

void take_predicate(TreeWindow &tw, tk::TextField &field) {
    tw.pred_requestor->hide();
    show_foot(*tw.frame, tw.predicate.set(field.value()));
}

}  // namespace

std::function<void(Node *)> show_hidden_in(TreeWindow &tw) {
    return [&tw](Node *) {
        if (tw.show_punctuation) return;
        tw.show_punctuation = true;
        tree_GUI_repaint(tw);
    };
}

void show_error(const ExpansionError &error, TreeWindow &tw) {
    prompt_at_node(error.node, error.message, tw, false);
}

Formula evaluate_root(Node *root, TreeWindow &tw, const std::function<void()> &stop) {
    const CheckedFormula checked = evaluate_formula(the_corpus(), root, show_hidden_in(tw));
    for (int i = 0; i < checked.dropped_chunks; ++i) fmt::print("{}\n", output_dropped);
    if (checked.error) {
        stop();
        show_error(*checked.error, tw);
    }
    return checked.formula;
}

void install_formulas(Commands &table) {
    table.filter_node = filter_node;
    table.evaluate = evaluate;
    table.show_expansion = show_expansion;
    table.make_expansions = make_expansions;
    table.set_predicate = set_predicate;
    table.set_pred = take_predicate;
}

}  // namespace brindle
