// brindle-batch: the workbench's work from a shell.
#include <cstdio>
#include <deque>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "app/batch/options.hpp"
#include "model/output_file.hpp"
#include "model/text.hpp"

namespace brindle::batch {
namespace {

const char *const description =
    "Works on a treebank as the BRINDLE workbench does, without a window.\n"
    "Results go to standard output (or to the file of -o, whole or not at all), messages to standard error.";

void add_selection(CLI::App &command, Options &options) {
    const auto note = [&options](auto) { options.selecting = true; };
    command.add_option("--trees", options.trees, "which trees: checked, unchecked or both (default both)")
        ->check(CLI::IsMember({"checked", "unchecked", "both"}))
        ->each(note);
    command.add_option("--from", options.from, "first tree of the range (default 1)")->each(note);
    command.add_option("--to", options.to, "last tree of the range (default: the corpus' last)")->each(note);
    command.add_option("--random", options.random, "only N trees of the range, drawn at random")
        ->check(CLI::NonNegativeNumber)
        ->each(note);
    command.add_option("--seed", options.seed, "seed of --random (default 1)")->each(note);
}

void add_search(CLI::App &command, Options &options) {
    command.add_option("--syn", options.syn, "the category to find");
    command.add_option("--lex", options.lex, "the word to find");
    command.add_option("--sem", options.sem, "the semantic tag to find");
    command.add_flag("--substring", options.substring, "labels that contain the text, not whole labels");
    command.add_option("--kind", options.kind, "which of two like-named categories: terminal or nonterminal")
        ->check(CLI::IsMember({"terminal", "nonterminal"}));
    command.add_option("--start", options.start, "the tree to start at (default 1)");
    auto *replace = command.add_option("--replace", options.replace, "what to replace: semantics or syntax")
                        ->check(CLI::IsMember({"semantics", "syntax"}));
    command.add_option("--with", options.with, "the replacement; empty removes tags")->needs(replace);
}

void add_options(CLI::App &command, const Action &action, Options &options) {
    if (action.takes & selection) add_selection(command, options);
    if (action.takes & search_options) add_search(command, options);
    if (action.takes & write_format)
        command.add_option("--format", options.format, "atis, dop, dop2 or info")
            ->required()
            ->check(CLI::IsMember({"atis", "dop", "dop2", "info"}));
    if (action.takes & report_file)
        command.add_option("--report", options.report, "where the report goes (- for standard output)")
            ->required();
    if (action.takes & filter_options) {
        command.add_flag("--roots", options.roots, "root nodes only");
        command.add_option("--predicate", options.predicate, "the evaluation predicate");
        command.add_option("--prolog", options.prolog, "the command that starts Prolog");
    }
    if (action.takes & script_file) {
        command.add_option("--script", options.script, "the operations, a line each (- for standard input)")
            ->required();
        command.add_flag("--tables", options.tables, "write the label statistics instead of the corpus");
    }
    if (action.takes & one_tree)
        command.add_option("--tree", options.tree, "the tree's number, from 1")->required();
    if (action.takes & node_path)
        command.add_option("--node", options.node,
                           "the node: . is the root, 2.1 its second daughter's first");
    if (action.takes & size_choice)
        command.add_option("--size", options.size, "small, medium, default or large")
            ->check(CLI::IsMember({"small", "medium", "default", "large"}));
    if (action.takes & punctuation_flag)
        command.add_flag("--punctuation", options.punctuation, "punctuation daughters too");
    if (!(action.takes & no_corpus))
        command.add_option("-w,--wordgraphs", options.wordgraphs, "attach the word graphs of this file");
    command.add_option("-o,--output", options.output, "where the result goes (default: standard output)");
    command.add_flag("--quiet", options.quiet, "no progress bar");
    command
        .add_option(action.takes & no_corpus ? "FILE" : "CORPUS", options.corpus,
                    action.takes & no_corpus ? "the bracketing (- for standard input)" : "the corpus file")
        ->required();
}

int usage(std::string_view message) {
    fmt::print(
        stderr,
        "brindle-batch: {}\nusage: brindle-batch ACTION [OPTION]... CORPUS\ntry 'brindle-batch --help'\n",
        message);
    return misused;
}

// Builds the command line from the table of actions, parses it, and runs the action.
int run(int argc, char **argv) {
    CLI::App app(description, "brindle-batch");
    app.allow_extras();
    app.set_version_flag("--version", "brindle-batch " BRINDLE_VERSION);
    app.get_formatter()->label("SUBCOMMAND", "ACTION");
    app.get_formatter()->label("Subcommands", "Actions");
    app.get_formatter()->label("TEXT:{", "{");
    app.failure_message([](const CLI::App *, const CLI::Error &) { return std::string(); });
    app.footer(
        "'brindle-batch ACTION --help' tells the options of an action.\n"
        "TREE is a tree's number, from 1. PATH names a node: . is the root, 2.1 its second daughter's "
        "first.");
    std::deque<Options> parsed;
    for (const Action &action : actions()) {
        CLI::App *command = app.add_subcommand(action.name, action.help);
        command->footer(action.details);
        command->allow_extras(false);
        add_options(*command, action, parsed.emplace_back());
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &success) {
        return app.exit(success);
    } catch (const CLI::ParseError &mistake) {
        return usage(mistake.what());
    }
    if (app.get_subcommands().empty())
        return usage(argc > 1 ? fmt::format("no such action: {}", argv[1]) : std::string("no action given"));
    const CLI::App *chosen = app.get_subcommands().front();
    for (std::size_t i = 0; i < actions().size(); ++i)
        if (chosen->get_name() == actions()[i].name) try {
                return actions()[i].run(parsed[i]);
            } catch (const UsageError &mistake) {
                return usage(mistake.message);
            }
    return misused;
}

}  // namespace
}  // namespace brindle::batch

int main(int argc, char **argv) {
    brindle::set_text_locale();
    brindle::remove_unfinished_files_on_signals(true);
    return brindle::batch::run(argc, argv);
}
