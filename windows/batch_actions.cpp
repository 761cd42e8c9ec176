// The actions of the batch box.
#include <fmt/format.h>

#include "base/output_file.hpp"
#include "corpus/saving.hpp"
#include "drawing/text.hpp"
#include "propose/node_run.hpp"
#include "propose/report.hpp"
#include "propose/selection_writer.hpp"
#include "windows/batch_box.hpp"
#include "windows/formulas.hpp"
#include "windows/saving.hpp"
#include "windows/tree_window.hpp"
#include "windows/workbench.hpp"

namespace brindle {
namespace {

void tell_of_failed_write(const WriteFault &fault, TreeWindow &window) {
    window.tell(fmt::format("Cannot write to:\n{}\n{}", fault.name, fault.reason), false);
}

void tell_cannot_open(const std::string &name, TreeWindow &window) {
    window.tell(fmt::format("Error: Can't open {} for writing", name), false);
}

}  // namespace

QPushButton *BatchBox::add_action(const QString &label, std::function<void()> action) {
    new_row();
    return add_button(label, std::move(action));
}

void BatchBox::add_actions() {
    using enum NodeRunKind;
    add_action("Filter all nodes through prolog", [this] { start_node_run(filter, false); });
    add_action("Filter root-nodes through prolog", [this] { start_node_run(filter, true); });
    add_action("Let prolog evaluate all nodes", [this] { start_node_run(evaluate, false); });
    add_action("Let prolog evaluate root-nodes", [this] { start_node_run(evaluate, true); });
    add_action("Expand all nodes", [this] {
        run("Expanding away...", [this](Run &run) {
            TreeWindow &window = window_in_hand();
            const auto show = [&window](const ExpansionError &error) { show_error(error, window); };
            return expand_all(run, show, show_hidden_in(window));
        });
    });
    add_action("Propose an annotation", [this] { run("Proposing away...", brindle::propose_all); });
    add_results_requestor();
    evaluate_ = add_action("Propose and evaluate results", [this] { results_->show_right_of(*evaluate_); });
    add_action("Undo all edits on tree", [this] { run("", brindle::undo_edits_all); });
    write_ = add_action("Write selection to file", [this] {
        FileRequestor &requestor = *window_in_hand().file_requestor;
        requestor.set_handler(
            [this](const std::string &name, CorpusFormat format) { write_selection(name, format); });
        requestor.show_right_of(*write_);
    });
    add_action("Check tree", [this] { run("Checking trees...", brindle::check_all); });
    add_button("Uncheck tree", [this] { run("Unchecking trees...", brindle::uncheck_all); });
}

void BatchBox::propose_and_evaluate_into(const std::string &name) {
    TreeWindow &window = window_in_hand();
    Workbench &workbench = window.workbench();
    OutputFile file(name);
    if (!file.ok()) return tell_cannot_open(name, window);
    results_->hide();
    const SelectionChoice chosen = choice();
    std::string report;
    run("Proposing away, and evaluating results...", [&](Run &run) {
        int last = -1;
        report = propose_and_evaluate(run, chosen, last);
        return last;
    });
    if (!(file.write(report) && file.commit()) && workbench.window_of(&window))
        tell_of_failed_write({name, file.error()}, window);
}

void BatchBox::write_selection(const std::string &name, CorpusFormat format) {
    TreeWindow &window = window_in_hand();
    Workbench &workbench = window.workbench();
    if (const OutputFile probe(name); !probe.ok()) return tell_cannot_open(name, window);
    window.file_requestor->hide();
    WriteFault fault;
    run(fmt::format("Writing selection to {}....", name), [&](Run &run) {
        int last = -1;
        const auto evaluate = [&](Node *root) { return evaluate_root(root, window, [&run] { run.stop(); }); };
        fault = brindle::write_selection(run, name, format, evaluate, last);
        return last;
    });
    if (!workbench.window_of(&window)) return;
    if (!fault.name.empty())
        tell_of_failed_write(fault, window);
    else
        window.set_footer(fmt::format("Selection written to {}....", name));
}

void BatchBox::add_results_requestor() {
    results_ = new CommandWindow(window_in_hand(), "Save evaluation results in:");
    QLineEdit *name = results_->add_file_field("File name:", 30);
    results_->add_ok_and_cancel([this, name] { propose_and_evaluate_into(to_locale(name->text())); });
}

// ---------------------------------------------------------------- runs that Prolog drives

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
