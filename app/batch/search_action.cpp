// `search`, with and without a replacement.
#include <iterator>

#include <fmt/format.h>

#include "app/batch/actions.hpp"
#include "app/batch/session.hpp"
#include "app/batch/shell.hpp"
#include "display/search.hpp"
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
std::optional<Pattern> pattern_of(const Session &session) {
    const Options &options = session.options;
    Addresses addresses = init_adresses(session.corpus, request_of(options),
                                        [&](const std::string &) { return kind_of(options); });
    for (const SearchMessage &message : addresses.messages) complain(message.text);
    return std::move(addresses.pattern);
}

int list_matches(const Session &session, CorpusSearch &search) {
    std::string text;
    while (const auto match = search.next())
        fmt::format_to(std::back_inserter(text), "{}\t{}\t{}\t{}\t{}\n", match->tree + 1,
                       path_of(match->node), text_of(match->node->syn()), text_of(match->node->sem()),
                       text_of(match->node->lex()));
    return session.put_out(text);
}

int replace_matches(Session &session, ReplaceChoice choice, CorpusSearch &search) {
    const SearchRequest request = request_of(session.options);
    while (const auto match = search.next()) {
        const auto refusal = replace_at(session.corpus, match->node, request, choice, session.options.with);
        if (!refusal) continue;
        complain(fmt::format("tree {}, node {}: {}", match->tree + 1, path_of(match->node), *refusal));
        return failed;
    }
    return session.put_out_corpus();
}

}  // namespace

int run_search(const Options &options) {
    Session session(options);
    const ReplaceChoice choice =
        options.replace == "syntax" ? ReplaceChoice::syntax : ReplaceChoice::semantics;
    if (!options.replace.empty())
        if (const auto refusal = cannot_replace(request_of(options), choice, options.with)) {
            complain(*refusal);
            return failed;
        }
    const int start =
        session.corpus.amount() == 0 && options.start == 1 ? 0 : session.tree_index(options.start);
    std::optional<Pattern> pattern = pattern_of(session);
    if (!pattern) return failed;
    CorpusSearch search(session.corpus, std::move(*pattern), start);
    return options.replace.empty() ? list_matches(session, search) : replace_matches(session, choice, search);
}

}  // namespace brindle::batch
