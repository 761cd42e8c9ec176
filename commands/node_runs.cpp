// The batch runs that Prolog drives.
#include <memory>

#include "commands/batch_box.hpp"
#include "commands/busy_notice.hpp"
#include "commands/prolog_window.hpp"
#include "commands/subjects.hpp"
#include "gui/current_run.hpp"
#include "gui/dialogs.hpp"
#include "gui/the_corpus.hpp"
#include "propose/node_run.hpp"

namespace brindle {

namespace {

// Shows Prolog's answer at the node; Control-C in the notice ends the run.
void show_answer(const Node *node, std::string_view text, TreeWindow &tw) {
    constexpr int ok = 1, abort = 2;
    tk::NoticeSpec spec;
    spec.message = {std::string(text)};
    spec.buttons = {{"Ok", ok}};
    spec.triggers = {{tk::CODE_CTRL_C, abort}};
    spec.silent = true;
    if (notice_at_node(node, spec, tw) == abort && open_window(&tw)) stop_batch(tw);
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
    hooks.send_query = [&tw](Node *node) {
        return the_prolog().send_query(tw.predicate.step_line(node->sem()->view()), &tw);
    };
    hooks.refused = [&tw](Node *node, std::string_view text) { prompt_at_node(node, text, tw, false); };
    hooks.show = [&tw](Node *node, std::string_view message) { show_answer(node, message, tw); };
    hooks.finish = [kind, &tw](int tree) {
        if (kind == NodeRunKind::filter && tree >= 0) enter_tree(tree, tw);
        stop_batch(tw);
    };
    hooks.broken_off = [&tw] { stop_batch(tw); };
    return hooks;
}

void start(NodeRunKind kind, bool roots_only, std::string_view footer, TreeWindow &tw) {
    if (the_prolog().is_busy() || running_window()) {
        if (const Tree *tree = current_tree(tw))
            busy_notice(tree->root, "Cannot filter this tree, prolog is busy", tw);
        return;
    }
    batch_init(tw);
    if (tw.batch_selection.empty()) {
        stop_batch(tw);
        return;
    }
    show_foot(*tw.frame, footer);
    const auto run = std::make_shared<NodeRun>(the_corpus(), kind, tw.batch_selection, roots_only,
                                               hooks_of(kind, footer, tw));
    begin_run(tw, [run] { run->stop(); });
    the_prolog().drive(run);
}

void filter(TreeWindow &tw, bool roots_only) {
    start(NodeRunKind::filter, roots_only, "Filtering nodes...", tw);
}

void evaluate(TreeWindow &tw, bool roots_only) {
    start(NodeRunKind::evaluate, roots_only, "Evaluating nodes... Press Ctrl-C to abort", tw);
}

}  // namespace

void install_node_runs(Commands &table) {
    table.filter_all = [](TreeWindow &tw, tk::Button &) { filter(tw, false); };
    table.filter_root = [](TreeWindow &tw, tk::Button &) { filter(tw, true); };
    table.evaluate_all = [](TreeWindow &tw, tk::Button &) { evaluate(tw, false); };
    table.evaluate_root = [](TreeWindow &tw, tk::Button &) { evaluate(tw, true); };
}

}  // namespace brindle
