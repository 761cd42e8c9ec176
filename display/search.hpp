#pragma once
// Search and replace over the whole corpus: what the fields of the search box mean, what they refuse, and
// the matches one after another. It stands here because its messages are those of the search box; the
// matching is model/pattern's.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/pattern.hpp"

namespace brindle {

// The three buttons, with their action codes.
enum class SearchAction : int { search = 114, replace = 115, replace_all = 116 };

// What a replacement changes, as the choice item numbers it.
enum class ReplaceChoice : int { semantics = 0, syntax = 1 };

// The fields as typed; an empty one matches anything.
struct SearchRequest {
    std::string syn;
    std::string lex;
    std::string sem;
    bool complete_labels = true;  // whole labels, else any label that contains the text
};

struct SearchMessage {
    std::string text;
    bool silent;  // without the bell
    bool operator==(const SearchMessage &) const = default;
};

// What the fields come to: the messages to show, one after another, and the pattern if they are usable.
struct Addresses {
    std::vector<SearchMessage> messages;
    std::optional<Pattern> pattern;
};

// Asks the question and returns TERM or NONTERM.
using TermOrNonterm = std::function<LabelKind(const std::string &question)>;

// True if the fields name, in exact mode and without a word, a category that occurs both with words and
// without: then init_adresses asks which one is meant.
bool is_term_and_nonterm(const Corpus &corpus, const SearchRequest &request);

// Looks the fields up in the statistics. `ask` is called if is_term_and_nonterm, before any message.
Addresses init_adresses(const Corpus &corpus, const SearchRequest &request, const TermOrNonterm &ask);

// Why nothing can be replaced, as the notice to show (with the bell); no value: it can. `with` may be empty.
std::optional<std::string> cannot_replace(const SearchRequest &request, ReplaceChoice choice,
                                          std::string_view with);

// Replaces the label of a matching node: the whole of it, or every occurrence of the field's text in it.
// Returns why the new label is refused, if it is; then nothing has changed.
std::optional<std::string> replace_at(Corpus &corpus, Node *node, const SearchRequest &request,
                                      ReplaceChoice choice, std::string_view with);

// The matches in a corpus, tree by tree in document order. Labels may change between two steps; a tree's
// nodes may not, but for those of trees not yet reached.
class CorpusSearch {
  public:
    // Begins at the top of a tree (0-based). `may_go_on` is asked now and then on a long way to a match;
    // false ends the search.
    CorpusSearch(const Corpus &corpus, Pattern pattern, int first_tree, std::function<bool()> may_go_on = {})
        : corpus_(corpus),
          matches_(corpus, std::move(pattern)),
          tree_(first_tree),
          may_go_on_(std::move(may_go_on)) {}

    struct Match {
        int tree;
        Node *node;
    };
    // The next match after the one returned before; no value: there is none, or the search was ended.
    std::optional<Match> next();

  private:
    const Corpus &corpus_;
    Matches matches_;
    int tree_;
    const Node *start_ = nullptr;
    std::function<bool()> may_go_on_;
};

}  // namespace brindle
