#include "display/search_command.hpp"

namespace brindle {
namespace {

using Answer = SearchHost::Answer;
using Question = SearchHost::Question;

class SearchSteps {
  public:
    SearchSteps(Corpus &corpus, const SearchCommand &command, SearchHost &host)
        : corpus_(corpus),
          command_(command),
          host_(host),
          silent_(command.action == SearchAction::replace_all && !command.prompts) {}

    int run() {
        const SearchRequest &request = command_.request;
        const bool replaces = command_.action != SearchAction::search;
        if (replaces && refused(cannot_replace(request, command_.choice, command_.with))) return -1;
        Addresses addresses = init_adresses(corpus_, request, [this](const std::string &question) {
            return host_.term_or_nonterm(question);
        });
        for (const SearchMessage &message : addresses.messages) host_.tell(message.text, message.silent);
        if (!addresses.pattern) return -1;
        CorpusSearch search(corpus_, std::move(*addresses.pattern), command_.first_tree,
                            [this] { return goes_on(); });
        while (const auto match = next(search)) {
            const Answer answer = at_match(*match);
            if (answer == Answer::go_back) return command_.shown_tree;
            if (answer == Answer::stop) return last_replaced_;
        }
        if (!stopped_ && !silent_) host_.tell("Not found", true);
        return last_replaced_;
    }

  private:
    bool goes_on() {
        stopped_ = stopped_ || !host_.may_go_on();
        return !stopped_;
    }

    std::optional<CorpusSearch::Match> next(CorpusSearch &search) {
        if (silent_ && !goes_on()) return std::nullopt;
        auto match = search.next();
        if (!silent_) host_.arrived();
        return match;
    }

    // Shows the match and does what the button asks for. Returns the answer that decides how to go on.
    Answer at_match(const CorpusSearch::Match &match) {
        if (!silent_) host_.show(match);
        if (command_.action == SearchAction::search) return host_.ask_at(match.node, Question::found);
        const Answer answer = command_.prompts ? host_.ask_at(match.node, Question::replace) : Answer::yes;
        if (answer == Answer::yes && !replace(match)) return Answer::stop;
        const bool asks_again = command_.action == SearchAction::replace && answer != Answer::stop;
        return asks_again ? host_.ask_at(match.node, Question::search_again) : answer;
    }

    bool replace(const CorpusSearch::Match &match) {
        const auto reason = replace_at(corpus_, match.node, command_.request, command_.choice, command_.with);
        if (silent_) last_replaced_ = match.tree;
        return !refused(reason);
    }

    bool refused(const std::optional<std::string> &reason) {
        if (!reason) return false;
        host_.arrived();
        host_.tell(*reason, false);
        return true;
    }

    Corpus &corpus_;
    const SearchCommand &command_;
    SearchHost &host_;
    const bool silent_;  // nothing is shown between two matches
    bool stopped_ = false;
    int last_replaced_ = -1;
};

}  // namespace

int run_search(Corpus &corpus, const SearchCommand &command, SearchHost &host) {
    return SearchSteps(corpus, command, host).run();
}

}  // namespace brindle
