#include "windows/formulas.hpp"

#include <fmt/format.h>

#include "drawing/text.hpp"
#include "prolog/checking.hpp"
#include "prolog/run_once.hpp"
#include "windows/command_window.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

// True after the busy notice at the node.
bool refused_while_busy(TreeWindow &window, const Node *node) {
    if (!window.workbench().prolog().is_busy()) return false;
    tell_busy(window, node, "Cannot evaluate this subtree, prolog is busy");
    return true;
}

// Expands over the selected nodes. False after a notice at the node that is at fault.
bool expand_selected(std::string &out, Node *top, TreeWindow &window) {
    const auto error = expand(out, window.corpus(), top, {.on_punctuation = show_hidden_in(window)});
    if (error) show_error(*error, window);
    return !error;
}

}  // namespace

void tell_busy(TreeWindow &window, const Node *node, std::string_view text) {
    enum Answer { fix = 0, known = 1 };
    const int answer = window.ask_at(node, {.message = std::string(text),
                                            .buttons = {{"I Know", known}, {"Please try to fix that", fix}},
                                            .escape_value = known,
                                            .silent = true});
    PrologSession &prolog = window.workbench().prolog();
    if (answer == fix && prolog.is_busy()) prolog.write_line("true.\n");
}

void filter_node(TreeWindow &window, Node &node) {
    if (!node.sem()) return window.tell_at(&node, "This node requires an annotation", false);
    if (refused_while_busy(window, &node)) return;
    window.workbench().prolog().filter(&node, window.predicate, &window);
}

void evaluate_subtree(TreeWindow &window, Node &node) {
    Node *top = top_of_selection(&node);
    std::string formula;
    if (!expand_selected(formula, top, window) || refused_while_busy(window, top)) return;
    window.workbench().prolog().send_query(window.predicate.evaluation_line(formula), &window);
}

void show_expansion(TreeWindow &window, Node &node) {
    Node *top = top_of_selection(&node);
    std::string text;
    if (expand_selected(text, top, window)) window.tell_at(top, text + ".\n\n", true);
}

void expand_annotations(TreeWindow &window, Node &node) {
    const auto error = expand_into_tags(window.corpus(), top_of_selection(&node),
                                        {.on_punctuation = show_hidden_in(window)});
    if (error) show_error(*error, window);
}

std::function<void(Node *)> show_hidden_in(TreeWindow &window) {
    return [&window](Node *) { window.show_punctuation(true); };
}

void show_error(const ExpansionError &error, TreeWindow &window) {
    window.tell_at(error.node, error.message, false);
}

Formula evaluate_root(Node *root, TreeWindow &window, const std::function<void()> &stop) {
    const CheckedFormula checked = evaluate_formula(window.corpus(), root, show_hidden_in(window));
    for (int i = 0; i < checked.dropped_chunks; ++i) fmt::print("{}\n", output_dropped);
    if (checked.error) {
        stop();
        show_error(*checked.error, window);
    }
    return checked.formula;
}

// ---------------------------------------------------------------- the predicate

Requestor *new_predicate_requestor(TreeWindow &owner) {
    auto *requestor = new Requestor(owner, "Evaluation predicate");
    requestor->add_message("Set predicate for this window");
    requestor->new_row();
    QLineEdit *field = requestor->add_field("       Predicate:", 12);
    requestor->new_row();
    requestor->add_message("Note: Just give the name,do not");
    requestor->new_row();
    requestor->add_message("indicate arity or supply arguments");
    requestor->ask_for(field,
                       [&owner](const std::string &text) { owner.set_footer(owner.predicate.set(text)); });
    return requestor;
}

void ask_for_predicate(TreeWindow &window) {
    Requestor &requestor = *window.predicate_requestor;
    if (!window.predicate.is_null) requestor.field().setText(to_qstring(window.predicate.text));
    requestor.open_on(nullptr);
}

}  // namespace brindle
