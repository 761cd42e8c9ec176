#include "app/batch/search_action.hpp"

#include <iterator>

#include <fmt/format.h>

#include "app/batch/session.hpp"
#include "display/search.hpp"
#include "model/forest.hpp"
#include "model/path.hpp"

namespace brindle::batch {
namespace {

SearchRequest request_of(const Options &options) {
    return {options.syn, options.lex, options.sem, !options.substring};
}

// The kind asked for; a category of both kinds needs one.
LabelKind kind_of(const Options &options) {
    if (options.kind.empty())
        throw UsageError{
            fmt::format("{} is both a terminal and a non-terminal category; say --kind", options.syn)};
    return options.kind == "terminal" ? LabelKind::TERM : LabelKind::NONTERM;
}

// The pattern, or nothing after messages.
std::optional<Pattern> pattern_of(const Options &options) {
    Addresses addresses =
        init_adresses(request_of(options), [&](const std::string &) { return kind_of(options); });
    for (const SearchMessage &message : addresses.messages) complain(message.text);
    return std::move(addresses.pattern);
}

int list_matches(const Options &options, ForestSearch search) {
    std::string text;
    while (const auto match = search.next())
        fmt::format_to(std::back_inserter(text), "{}\t{}\t{}\t{}\t{}\n", match->tree + 1,
                       path_of(match->node), text_of(match->node->syn), text_of(match->node->sem),
                       text_of(match->node->lex));
    return put_out(options, text);
}

int replace_matches(const Options &options, ReplaceChoice choice, ForestSearch search) {
    const SearchRequest request = request_of(options);
    while (const auto match = search.next()) {
        const TreeEntry &tree = forest[static_cast<std::size_t>(match->tree)];
        if (const auto refusal = replace_at(tree, match->node, request, choice, options.with, nullptr)) {
            complain(fmt::format("tree {}, node {}: {}", match->tree + 1, path_of(match->node), *refusal));
            return failed;
        }
    }
    return put_out_corpus(options);
}

}  // namespace

int run_search(const Options &options) {
    load(options);
    const ReplaceChoice choice =
        options.replace == "syntax" ? ReplaceChoice::syntax : ReplaceChoice::semantics;
    if (!options.replace.empty())
        if (const auto refusal = cannot_replace(request_of(options), choice, options.with)) {
            complain(*refusal);
            return failed;
        }
    const int start = amount == 0 && options.start == 1 ? 0 : tree_index(options.start);
    std::optional<Pattern> pattern = pattern_of(options);
    if (!pattern) return failed;
    ForestSearch search(std::move(*pattern), start);
    return options.replace.empty() ? list_matches(options, std::move(search))
                                   : replace_matches(options, choice, std::move(search));
}

}  // namespace brindle::batch
