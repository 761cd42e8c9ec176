#pragma once
// What the statistics know about a node's category, tag or word, and about the mothers that nodes like it
// have: the texts of the information displays, page by page. Statistics are read, never changed.
#include <functional>
#include <optional>
#include <string>

#include "display/hit_test.hpp"
#include "model/corpus.hpp"

namespace brindle {

// Shows one page of a display that goes on; true: "More..", false: "Ok", which ends the display.
using MoreInfo = std::function<bool(std::string_view page)>;

// The display for what was hit, or with Control for the node's mothers: shows all pages but the last with
// `more` and returns the last one, to be shown at the node. No value: the user has ended the display, or
// there is none for this mode. REQUIRES: the node's labels are stored in the statistics.
std::optional<std::string> information(const Corpus &corpus, const Node *node, InfoMode mode, bool control,
                                       const MoreInfo &more);

// The four displays, as above.
std::optional<std::string> create_syn_info(const Corpus &corpus, const Node *node, const MoreInfo &more);
std::optional<std::string> create_sem_info(const Corpus &corpus, const Node *node, const MoreInfo &more);
std::optional<std::string> create_lex_info(const Corpus &corpus, const Node *node, const MoreInfo &more);
// The mothers of nodes with this word, if the word was hit, else of nodes with this category and tag.
std::optional<std::string> create_parent_info(const Corpus &corpus, const Node *node, InfoMode mode,
                                              const MoreInfo &more);

}  // namespace brindle
