// What asks Prolog about a node's tag or a selected subtree's formula, and the expansion of formulas.
#include "commands/busy_notice.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "model/request.hpp"
#include "prolog/pipe.hpp"
#include "prolog/subtrees.hpp"

namespace brindle {

namespace {

// True after the busy notice at the node.
bool refused_while_busy(const Node *node, TreeWindow &tw) {
    if (!prolog_is_busy()) return false;
    busy_notice(node, "Cannot evaluate this subtree, prolog is busy", tw);
    return true;
}

void filter_node(TreeWindow &tw, Node &node) {
    if (!node.sem) {
        prompt_at_node(&node, "This node requires an annotation", tw, false);
        return;
    }
    if (refused_while_busy(&node, tw)) return;
    BATCH_TREE_GUI = &tw;
    FILTER_NODE = &node;
    if (!send_query(filter_line(tw, node.sem->view()), &tw)) FILTER_NODE = nullptr;
}

void evaluate(TreeWindow &tw, Node &node) {
    Node *top = top_of_selection(&node);
    std::string formula;
    if (expand_expr(formula, top, &tw) || refused_while_busy(top, tw)) return;
    send_query(evaluation_line(tw, formula), &tw);
}

void show_expanded(TreeWindow &tw, Node &node) {
    show_expansion(&node, &tw);
}

void expand_selection(TreeWindow &tw, Node &node) {
    make_expansions(&node, &tw);
}

void set_predicate(TreeWindow &tw, Node &) {
    tk::CommandFrame &requestor = *tw.pred_requestor;
    requestor.hide();
    auto &field = static_cast<tk::TextField &>(*requestor.panel().items()[1]);
    if (!tw.predicate_is_null) field.set_value(tw.predicate);
    position_frame_from_menu(requestor, *tw.subtrees_menu, tw);
}

void take_predicate(TreeWindow &tw, tk::TextField &field) {
    tw.pred_requestor->hide();
    show_foot(*tw.frame, set_pred(tw, field.value()));
}

}  // namespace

void install_formulas(Commands &table) {
    table.filter_node = filter_node;
    table.evaluate = evaluate;
    table.show_expansion = show_expanded;
    table.make_expansions = expand_selection;
    table.set_predicate = set_predicate;
    table.set_pred = take_predicate;
}

}  // namespace brindle
