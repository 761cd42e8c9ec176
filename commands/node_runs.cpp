#include "commands/node_runs.hpp"

#include <optional>

#include <fmt/format.h>

#include "commands/batch_box.hpp"
#include "commands/busy_notice.hpp"
#include "commands/subjects.hpp"
#include "gui/dialogs.hpp"
#include "model/forest.hpp"
#include "model/request.hpp"
#include "prolog/pipe.hpp"
#include "prolog/subtrees.hpp"
#include "propose/node_run.hpp"

namespace brindle {

namespace {

std::optional<NodeRun> current;  // the run, also after its end; only one exists at a time

// The line of one step. A window without a predicate sends the tag alone.
std::string step_line(const TreeWindow &tw, const Node *node) {
    if (tw.predicate.empty()) return fmt::format("{}.\n", node->sem->view());
    return filter_line(tw, node->sem->view());
}

// What an evaluating run says does not change: it shows its trees.
Progress progress_of(NodeRunKind kind, std::string_view footer, TreeWindow &tw) {
    return Progress(tw, std::string(kind == NodeRunKind::filter ? footer : std::string_view()));
}

NodeRun::Hooks hooks_of(NodeRunKind kind, std::string_view footer, TreeWindow &tw) {
    NodeRun::Hooks hooks;
    hooks.begin_tree = [kind, &tw, progress = progress_of(kind, footer, tw)](int tree) mutable {
        progress.step();
        if (kind == NodeRunKind::filter)
            enter_tree(tree, tw);
        else
            show_nr(tree, tw);
    };
    hooks.send_query = [&tw](Node *node) { return send_query(step_line(tw, node), &tw); };
    hooks.finish = [kind, &tw](int tree) {
        if (kind == NodeRunKind::filter && tree >= 0) enter_tree(tree, tw);
        stop_batch(tw);
    };
    return hooks;
}

void start(NodeRunKind kind, bool root_only, std::string_view footer, TreeWindow &tw) {
    if (prolog_is_busy() || BATCH) {
        if (const TreeEntry *tree = current_tree(tw))
            busy_notice(tree->root, "Cannot filter this tree, prolog is busy", tw);
        ROOT_ONLY = false;
        return;
    }
    batch_init(tw);
    ROOT_ONLY = root_only;
    if (tw.batch_selection.empty()) {
        stop_batch(tw);
        return;
    }
    show_foot(*tw.frame, footer);
    current.emplace(kind, tw.batch_selection, &tw, hooks_of(kind, footer, tw));
    current->start();
}

void filter(TreeWindow &tw, bool root_only) {
    start(NodeRunKind::filter, root_only, "Filtering nodes...", tw);
}

void evaluate(TreeWindow &tw, bool root_only) {
    start(NodeRunKind::evaluate, root_only, "Evaluating nodes... Press Ctrl-C to abort", tw);
}

}  // namespace

void go_on_with_node_run() {
    if (current && BATCH) current->go_on();
}

void abandon_node_run() {
    if (current) current->abandon();
}

void batch_prompt_at_node(Node *node, std::string_view text, TreeView *view) {
    TreeWindow *tw = open_window(view);
    if (!tw) return;
    constexpr int ok = 1, abort = 2;
    tk::NoticeSpec spec;
    spec.message = {std::string(text)};
    spec.buttons = {{"Ok", ok}};
    spec.triggers = {{tk::CODE_CTRL_C, abort}};
    spec.silent = true;
    if (notice_at_node(node, spec, *tw) == abort && open_window(view)) stop_batch(*tw);
}

void install_node_runs(Commands &table) {
    table.filter_all = [](TreeWindow &tw, tk::Button &) { filter(tw, false); };
    table.filter_root = [](TreeWindow &tw, tk::Button &) { filter(tw, true); };
    table.evaluate_all = [](TreeWindow &tw, tk::Button &) { evaluate(tw, false); };
    table.evaluate_root = [](TreeWindow &tw, tk::Button &) { evaluate(tw, true); };
}

}  // namespace brindle
