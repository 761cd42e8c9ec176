#pragma once
// One press of "Search", "Replace" or "Replace all", from its first tree to its end. What is shown and asked
// on the way is the window's part, the SearchHost's.
#include <string>
#include <string_view>

#include "display/search.hpp"

namespace brindle {

// What the search box says when a button is pressed.
struct SearchCommand {
    SearchAction action;
    SearchRequest request;
    ReplaceChoice choice = ReplaceChoice::semantics;
    std::string with = {};
    bool prompts = true;
    int first_tree = 0;  // 0-based
    int shown_tree = 0;  // where "Go back" goes
};

class SearchHost {
  public:
    enum class Question { found, replace, search_again };
    enum Answer { go_back, stop, again, no, yes };

    virtual ~SearchHost() = default;
    virtual void tell(std::string_view message, bool silent) = 0;
    virtual LabelKind term_or_nonterm(const std::string &question) = 0;
    // Brings a match into view; asks what to do there. `stop` when that cannot be asked any more.
    virtual void show(const CorpusSearch::Match &match) = 0;
    virtual Answer ask_at(const Node *node, Question question) = 0;
    // Called now and then on a long way: the user may act; false: the search is ended. The way is over for
    // now with arrived().
    virtual bool may_go_on() = 0;
    virtual void arrived() = 0;
};

// Searches, replaces. Returns the tree (0-based) to be shown at the end; -1: the one that is shown. A
// replacement without prompts shows nothing on its way, and ends on the tree of the last one.
int run_search(Corpus &corpus, const SearchCommand &command, SearchHost &host);

}  // namespace brindle
