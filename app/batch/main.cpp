// brindle-batch: the workbench's work from a shell.
#include <cstdio>
#include <deque>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "app/batch/actions.hpp"
#include "app/batch/help.hpp"
#include "base/output_file.hpp"
#include "base/text.hpp"

namespace brindle::batch {
namespace {

const char *const description =
    "Works on a treebank as the BRINDLE workbench does, without a window.\n"
    "Results go to standard output (or to the file of -o, whole or not at all), messages to standard error.";

// An option that takes one of a few words.
CLI::Option *add_choice(CLI::App &command, const char *name, std::string &value,
                        std::vector<std::string> words, const char *help) {
    return command.add_option(name, value, help)
        ->type_name(CLI::detail::join(words, "|"))
        ->check(CLI::IsMember(words).description(""));
}

CLI::Option *add_file(CLI::App &command, const char *name, std::string &value, const char *help) {
    return command.add_option(name, value, help)->type_name("FILE");
}

CLI::Option *add_text(CLI::App &command, const char *name, std::string &value, const char *help) {
    return command.add_option(name, value, help)->type_name("TEXT");
}

template <class Number>
CLI::Option *add_number(CLI::App &command, const char *name, Number &value, const char *type,
                        const char *help) {
    return command.add_option(name, value, help)->type_name(type);
}

void add_selection(CLI::App &command, Options &options) {
    const auto note = [&options](auto) { options.selecting = true; };
    add_choice(command, "--trees", options.trees, {"checked", "unchecked", "both"},
               "which trees (default both)")
        ->each(note);
    add_number(command, "--from", options.from, "TREE", "first tree of the range (default 1)")->each(note);
    add_number(command, "--to", options.to, "TREE", "last tree of the range (default: the corpus' last)")
        ->each(note);
    add_number(command, "--random", options.random, "N", "only N trees of the range, drawn at random")
        ->check([](const std::string &text) {
            return std::string(text.starts_with('-') ? "must not be negative" : "");
        })
        ->each(note);
    add_number(command, "--seed", options.seed, "S", "seed of --random (default 1)")->each(note);
}

void add_search(CLI::App &command, Options &options) {
    add_text(command, "--syn", options.syn, "the category to find");
    add_text(command, "--lex", options.lex, "the word to find");
    add_text(command, "--sem", options.sem, "the semantic tag to find");
    command.add_flag("--substring", options.substring, "labels that contain the text, not whole labels");
    add_choice(command, "--kind", options.kind, {"terminal", "nonterminal"},
               "which of two categories that are spelled alike");
    add_number(command, "--start", options.start, "TREE", "the tree to start at (default 1)");
    auto *replace = add_choice(command, "--replace", options.replace, {"semantics", "syntax"},
                               "replace the tag or the category of every match");
    add_text(command, "--with", options.with, "the replacement; empty removes tags")->needs(replace);
}

void add_filter(CLI::App &command, Options &options) {
    command.add_flag("--roots", options.roots, "root nodes only");
    add_text(command, "--predicate", options.predicate, "the evaluation predicate");
    add_text(command, "--prolog", options.prolog,
             "the command that starts Prolog (default: $BRINDLE_PROLOG)");
}

void add_script(CLI::App &command, Options &options) {
    add_file(command, "--script", options.script, "the operations, one a line (- is standard input)")
        ->required();
    command.add_flag("--tables", options.tables, "write the label statistics, not the corpus");
}

// All options of an action, and its operand. Of an option given twice the last one counts, so that a Makefile
// can add to what it says everywhere.
void add_options(CLI::App &command, const Action &action, Options &options) {
    command.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    if (action.takes & selection) add_selection(command, options);
    if (action.takes & search_options) add_search(command, options);
    if (action.takes & write_format)
        add_choice(command, "--format", options.format, {"atis", "dop", "dop2", "info"}, "the format")
            ->required();
    if (action.takes & report_file)
        add_file(command, "--report", options.report, "where the report goes (- is standard output)")
            ->required();
    if (action.takes & filter_options) add_filter(command, options);
    if (action.takes & script_file) add_script(command, options);
    if (action.takes & one_tree)
        add_number(command, "--tree", options.tree, "TREE", "the tree's number, from 1")->required();
    if (action.takes & node_path)
        add_number(command, "--node", options.node, "PATH",
                   "the subtree's topmost node (default ., the root)");
    if (action.takes & size_choice)
        add_choice(command, "--size", options.size, {"small", "medium", "default", "large"},
                   "the spacing of the nodes");
    if (action.takes & punctuation_flag)
        command.add_flag("--punctuation", options.punctuation, "punctuation daughters too");
    if (!(action.takes & no_corpus))
        add_file(command, "-w,--wordgraphs", options.wordgraphs, "attach the word graphs of this file");
    add_file(command, "-o,--output", options.output, "where the result goes (default: standard output)")
        ->each([&options](auto) { options.output_given = true; });
    command.add_flag("--quiet", options.quiet, "no progress bar");
    command.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::Throw);
    command
        .add_option(action.takes & no_corpus ? "FILE" : "CORPUS", options.corpus,
                    action.takes & no_corpus ? "the bracketing (- is standard input)" : "the corpus file")
        ->required();
}

int usage(std::string_view message) {
    fmt::print(
        stderr,
        "brindle-batch: {}\nusage: brindle-batch ACTION [OPTION]... CORPUS\ntry 'brindle-batch --help'\n",
        visible(message));
    return misused;
}

// Builds the command line from the table of actions, parses it, and runs the action.
int run(int argc, char **argv) {
    CLI::App app(description, "brindle-batch");
    app.allow_extras();
    app.set_version_flag("--version", "brindle-batch " BRINDLE_VERSION, "show the version and stop");
    app.set_help_flag("-h,--help", "show this help and stop");
    app.formatter(help_layout());
    app.failure_message([](const CLI::App *, const CLI::Error &) { return std::string(); });
    app.footer(
        "'brindle-batch ACTION --help' tells the options of an action. All actions take -o and --quiet.\n"
        "TREE is a tree's number, from 1. PATH names a node: . is the root, 2.1 its second daughter's "
        "first.\n"
        "Exit status: 0 done; 1 an input is in error, or output could not be written whole; 2 wrong usage.");
    std::deque<Options> parsed;
    for (const Action &action : actions()) {
        CLI::App *command = app.add_subcommand(action.name, action.help);
        command->group("Actions")->footer(action.details);
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
