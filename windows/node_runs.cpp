// The actions of the batch box that Prolog drives.
#include "propose/node_run.hpp"

#include "windows/batch_box.hpp"
#include "windows/formulas.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {

void BatchBox::add_node_actions() {
    using enum NodeRunKind;
    add_action("Filter all nodes through prolog", [this] { start_node_run(filter, false); });
    add_action("Filter root-nodes through prolog", [this] { start_node_run(filter, true); });
    add_action("Let prolog evaluate all nodes", [this] { start_node_run(evaluate, false); });
    add_action("Let prolog evaluate root-nodes", [this] { start_node_run(evaluate, true); });
}

// Shows Prolog's answer at the node; Control-C in the notice ends the run.
void BatchBox::show_answer(const Node *node, std::string_view text) {
    enum Answer { ok = 1, abort = 2 };
    const int answer = window_in_hand().ask_at(node, {.message = std::string(text),
                                                      .buttons = {{"Ok", ok}},
                                                      .keys = {{Qt::ControlModifier | Qt::Key_C, abort}},
                                                      .silent = true});
    if (answer == abort) stop();
}

void BatchBox::start_node_run(NodeRunKind kind, bool roots_only) {
    TreeWindow &window = window_in_hand();
    Workbench &workbench = window.workbench();
    if (workbench.prolog().is_busy() || workbench.run().window()) {
        if (const Tree *tree = window.current_tree())
            tell_busy(window, tree->root, "Cannot filter this tree, prolog is busy");
        return;
    }
    begin();
    if (trees_.empty()) return stop();
    const bool filters = kind == NodeRunKind::filter;
    const std::string footer = filters ? "Filtering nodes..." : "Evaluating nodes... Press Ctrl-C to abort";
    window.set_footer(footer);
    NodeRun::Hooks hooks;
    hooks.begin_tree = [this, &window, filters, footer](int tree) {
        show_progress(filters ? footer : std::string());  // an evaluation shows its trees
        if (filters)
            window.enter_tree(tree);
        else
            window.show_tree(tree);
    };
    hooks.send_query = [&window, &workbench](Node *node) {
        return workbench.prolog().send_query(window.predicate.step_line(node->sem()->view()), &window);
    };
    hooks.refused = [&window](Node *node, std::string_view text) { window.tell_at(node, text, false); };
    hooks.show = [this](Node *node, std::string_view message) { show_answer(node, message); };
    hooks.finish = [this, &window, filters](int tree) {
        if (filters && tree >= 0) window.enter_tree(tree);
        stop();
    };
    hooks.broken_off = [this] { stop(); };
    const auto run = std::make_shared<NodeRun>(corpus(), kind, trees_, roots_only, std::move(hooks));
    workbench.run().begin(window, [run] { run->stop(); });
    workbench.prolog().drive(run);
}

}  // namespace brindle
