#include "prolog/messages.hpp"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <utility>

#include "model/forest.hpp"
#include "model/frontend.hpp"
#include "model/label_rules.hpp"
#include "model/request.hpp"
#include "prolog/host.hpp"
#include "prolog/stream.hpp"
#include "stats/changes.hpp"

namespace brindle {

namespace {

// A program that writes its markers on lines of their own means the text between them.
std::string_view without_outer_newlines(std::string_view text) {
    const auto is_break = [](char c) { return c == '\n' || c == '\r'; };
    while (!text.empty() && is_break(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_break(text.back())) text.remove_suffix(1);
    return text;
}

void filter_answer(Node *node, std::string_view message, TreeView *shown_in) {
    const std::string_view tag = without_outer_newlines(message);
    if (const std::optional<std::string> reason = refuse_tag(tag)) {
        const std::string text = fmt::format("Prolog's answer cannot be the tag:\n{}", *reason);
        frontend->prompt_at_node(node, text, BATCH_TREE_GUI, false);
        return;
    }
    const TreeEntry *tree = tree_of(node);
    const TreeCheckedScope scope(tree ? tree->checked : TREE_CHECKED);
    new_label(node, tag, shown_in);
}

}  // namespace

void show_message(PrologHost &host, std::string_view message) {
    if (FILTER_NODE && !BATCH) {
        filter_answer(std::exchange(FILTER_NODE, nullptr), message, BATCH_TREE_GUI);
    } else if (FILTER_NODE) {
        filter_answer(FILTER_NODE, message, nullptr);
    } else if (EVAL_NODE) {
        host.batch_prompt_at_node(EVAL_NODE, message, BATCH_TREE_GUI);
    } else {
        host.notice(message);
    }
}

void no_end_message(PrologHost &host) {
    host.notice(fmt::format("Error:\n\"{}\" encountered in prolog output,\nwithout matching \"{}\"",
                            begin_marker, end_marker));
    if (BATCH && (FILTER_NODE || EVAL_NODE)) host.stop_batch(BATCH_TREE_GUI);
    BATCH = false;
    FILTER_NODE = nullptr;
    EVAL_NODE = nullptr;
}

}  // namespace brindle
